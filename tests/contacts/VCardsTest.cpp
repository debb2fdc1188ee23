// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/contacts/VCards.h"

#include <QList>
#include <QStringEncoder>

#include <gmock/gmock.h>

#include <ostream>

namespace skipnest::platform {

void PrintTo(const Contact& contact, std::ostream* out) {
    *out << contact.identifier.toStdString() << '|' << contact.givenName.toStdString() << '|'
         << contact.familyName.toStdString() << '|' << contact.nicknames.join(u',').toStdString()
         << '|' << contact.formattedName.toStdString() << '|'
         << contact.phones.join(u',').toStdString() << '|'
         << contact.emails.join(u',').toStdString();
}

} // namespace skipnest::platform

namespace skipnest::linuxdesktop {
namespace {

using namespace Qt::StringLiterals;
using platform::Contact;
using testing::ElementsAre;
using testing::IsEmpty;

// A card with these lines, ended as the row wants.
QByteArray card(const QByteArray& lines, const char* end = "\r\n") {
    return "BEGIN:VCARD\n" + QByteArray(lines + "\nEND:VCARD\n").replace('\n', end);
}
std::vector<Contact> read(const QByteArray& file) {
    return readVCards(file, u"file"_s);
}

struct Row {
    const char* what;
    QByteArray file;
    Contact contact;
};
void PrintTo(const Row& row, std::ostream* out) {
    *out << row.what;
}
class VCardsTest : public testing::TestWithParam<Row> {};

TEST_P(VCardsTest, areReadAsTheyWereMeant) {
    EXPECT_THAT(read(GetParam().file), ElementsAre(GetParam().contact));
}

const Contact jorg{.identifier = u"file#0"_s,
                   .givenName = u"Jörg"_s,
                   .familyName = u"Müller"_s,
                   .nicknames = {},
                   .formattedName = u"Jörg Müller"_s,
                   .phones = {},
                   .emails = {}};
QByteArray utf16(const QString& text) {
    QStringEncoder encoder(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom);
    return encoder.encode(text);
}

const Row rows[] = {
    {"version3",
     card("VERSION:3.0\nUID:urn:1\nN:Meyer\\, sen.;Paul;Friedrich,Wilhelm;Dr.;\nFN:Paul Meyer\n"
          "NICKNAME:Paule,P\\,M\nitem1.TEL;TYPE=HOME,VOICE:030 12345\n"
          "item1.X-ABLabel:Zuhause\nTEL;type=CELL;type=pref:0171 2345678\nTEL;TYPE=FAX:030 999\n"
          "EMAIL;TYPE=WORK:p@work.example\nEMAIL;PREF=1:p@home.example\nNOTE:BEGIN:VCARD"),
     {u"urn:1"_s,
      u"Paul Friedrich Wilhelm"_s,
      u"Meyer sen."_s,
      {u"Paule"_s, u"P,M"_s},
      u"Paul Meyer"_s,
      {u"0171 2345678"_s, u"030 12345"_s},
      {u"p@home.example"_s, u"p@work.example"_s}}},
    {"version4",
     card("VERSION:4.0\nKIND:individual\nFN;PREF=1:Ada Byron\nN:Byron;Ada;;;\n"
          "TEL;VALUE=uri;TYPE=\"voice,cell\";X-A=\"b;c:d\":tel:+49-171-2345678;ext=5\n"
          "EMAIL:mailto:ada%40example.org"),
     {u"file#0"_s,
      u"Ada"_s,
      u"Byron"_s,
      {},
      u"Ada Byron"_s,
      {u"+49-171-2345678;ext=5"_s},
      {u"ada@example.org"_s}}},
    {"version2QuotedPrintable",
     card("VERSION:2.1\nN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:M=C3=BCl=\nler;J=C3=B6=\n=72g\n"
          "FN;QUOTED-PRINTABLE;CHARSET=ISO-8859-1:J=F6rg M=FCller"),
     jorg},
    {"version2Latin1",
     card("VERSION:2.1\nN;CHARSET=ISO-8859-1:M\xfcller;J\xf6rg\n"
          "FN;CHARSET=ISO-8859-1:J\xf6rg\n M\xfcller"),
     jorg},
    {"bytesThatAreNoUtf8", card("VERSION:3.0\nN:M\xfcller;J\xf6rg\nFN:J\xf6rg M\xfcller"), jorg},
    {"foldedInsideALetter",
     card("VERSION:3.0\nN:M\xc3\n \xbcller;J\xc3\n\t\xb6rg\nFN:J\xc3\xb6rg \n"
          " M\xc3\xbcller"),
     jorg},
    {"base64",
     card("VERSION:3.0\nN;ENCODING=b:TcO8bGxlcjtKw7ZyZw==\nFN;ENCODING=B:SsO2cmcg\n"
          " TcO8bGxlcg=="),
     jorg},
    {"utf16", utf16(QString::fromUtf8(card("VERSION:3.0\nN:Müller;Jörg\nFN:Jörg Müller"))), jorg},
    {"byteOrderMark", "\xef\xbb\xbf" + card("VERSION:3.0\nN:Müller;Jörg\nFN:Jörg Müller"), jorg},
    {"oldLineEnds", card("VERSION:3.0\nN:Müller;Jörg\nFN:Jörg Müller", "\r"), jorg},
    {"lowerCase", "begin:vcard\nversion:3.0\nn:Müller;Jörg\nfn:Jörg Müller\nend:vcard\n", jorg},
    {"withoutItsEnd", "BEGIN:VCARD\nN:Müller;Jörg\nFN:Jörg Müller", jorg},
    {"nulAndControls",
     card(QByteArray("VERSION:3.0\nN:Müller;Jörg;\nFN:Jörg\t\x01M", 41)),
     {u"file#0"_s, u"Jörg"_s, u"Müller"_s, {}, u"Jörg \u0001M"_s, {}, {}}},
};
INSTANTIATE_TEST_SUITE_P(Cards, VCardsTest, testing::ValuesIn(rows));

TEST(VCardsFileTest, groupsNamelessOnesAndTheAgentsCardAreNobody) {
    const QByteArray file =
        card("VERSION:4.0\nKIND:group\nFN:Family") +
        card("VERSION:3.0\nX-ADDRESSBOOKSERVER-KIND:group\nN:Friends;;;;\nFN:Friends") +
        card("VERSION:3.0\nTEL:1234567") +
        card("VERSION:2.1\nFN:Ada\nAGENT:\nBEGIN:VCARD\nFN:Bert\nTEL:7654321\nEND:VCARD\nTEL:1") +
        card("VERSION:3.0\nNICKNAME:Mama\nPHOTO;ENCODING=b:" + QByteArray(200'000, 'A') +
             "\nTEL:2");
    std::vector<std::string> names;
    std::vector<std::string> phones;
    for (const Contact& contact : read(file)) {
        names.push_back((contact.formattedName + contact.nicknames.join(u',')).toStdString());
        phones.push_back(contact.phones.join(u',').toStdString());
    }
    EXPECT_THAT(names, ElementsAre("Ada", "Mama"));
    EXPECT_THAT(phones, ElementsAre("1", "2"));
}

TEST(VCardsFileTest, whatIsNoCardGivesNobody) {
    for (const QByteArray& file :
         {QByteArray(), QByteArray("FN:Ada"), QByteArray(1'000'000, '\n'),
          QByteArray(100'000, '\0'), QByteArray("BEGIN:VCARD"),
          QByteArray("END:VCARD\n").repeated(1000), QByteArray("BEGIN:VCARD\n").repeated(1000),
          QByteArray("\xff\xfe\x00", 3)})
        EXPECT_THAT(read(file), IsEmpty());
}

} // namespace
} // namespace skipnest::linuxdesktop
