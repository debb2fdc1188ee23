// SPDX-License-Identifier: Apache-2.0
#include "voice/ContactsLookup.h"

#include "platform/sim/SimContactStore.h"
#include "platform/sim/VirtualScheduler.h"

#include <gmock/gmock.h>

#include <ostream>

namespace skipnest::voice {

void PrintTo(const ContactsLookup::Person& person, std::ostream* out) {
    *out << person.name.toStdString() << ' ' << person.phone.value_or(QString()).toStdString();
}

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using platform::Contact;
using testing::ElementsAre;
using testing::IsEmpty;

Contact contact(const char* identifier, const char* given, const char* family,
                const QStringList& nicknames = {}, const QStringList& phones = {}) {
    const QString givenName = QString::fromUtf8(given);
    const QString familyName = QString::fromUtf8(family);
    return {.identifier = QString::fromUtf8(identifier),
            .givenName = givenName,
            .familyName = familyName,
            .nicknames = nicknames,
            .formattedName = (givenName + u' ' + familyName).trimmed(),
            .phones = phones,
            .emails = {}};
}

class ContactsLookupTest : public testing::Test {
protected:
    void know(std::vector<Contact> people) {
        store.setPeople(std::move(people));
        lookup.refresh();
        scheduler.advanceTo(scheduler.now() + 1s);
    }
    std::vector<std::string> names(const char* spoken) const {
        std::vector<std::string> found;
        for (const auto& person : lookup.people(QString::fromUtf8(spoken)))
            found.push_back(person.name.toStdString());
        return found;
    }

    sim::VirtualScheduler scheduler;
    sim::SimContactStore store{scheduler};
    ContactsLookup lookup{store, u"de"_s};
};

TEST_F(ContactsLookupTest, namesFitInTheirOrderTheCloserOnesFirst) {
    know({contact("1", "Paul", "Meyer"), contact("2", "Paula", "Schmidt"),
          contact("3", "Paul Friedrich", "Großmann"), contact("4", "Jörg", "Müller"),
          contact("5", "Christian", "O'Neill", {u"Chris"_s}), contact("6", "Dr. Susanne", "Mayr"),
          contact("7", "Anna-Lena", "Koch"), contact("8", "", "", {u"Mama"_s})});
    struct Row {
        const char* spoken;
        std::vector<std::string> found;
    };
    const Row rows[] = {
        {"Paul Meyer", {"Paul Meyer"}},
        {"meyer paul", {"Paul Meyer"}},
        {"Herr Meyer", {"Paul Meyer", "Dr. Susanne Mayr"}}, // the second only sounds like it
        {"paul", {"Paul Friedrich Großmann", "Paul Meyer", "Paula Schmidt"}},
        {"Paul Grossmann", {"Paul Friedrich Großmann"}},
        {"Joerg Mueller", {"Jörg Müller"}},
        {"Jorg", {"Jörg Müller"}},
        {"chris", {"Christian O'Neill"}},
        {"Christian Oneill", {"Christian O'Neill"}},
        {"Frau Dr. Susanne Meier", {"Dr. Susanne Mayr"}},
        {"anna lena", {"Anna-Lena Koch"}},
        {"MAMA", {"Mama"}},
        {"Paul Paul", {}},
        {"Herbert", {}},
        {"Herr", {}},
        {"", {}},
        {" \t", {}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(names(row.spoken), row.found) << row.spoken;
    EXPECT_EQ(lookup.matches(u"Paul Meyer"_s).front().closeness, ContactsLookup::Closeness::whole);
    EXPECT_EQ(lookup.matches(u"Susanne Meier"_s).front().closeness,
              ContactsLookup::Closeness::sound);
    EXPECT_THAT(lookup.people(QString(u"paul "_s).repeated(100'000)), IsEmpty());
}

TEST_F(ContactsLookupTest, aPersonHasTheNumberThatALinkReaches) {
    know({contact("a", "Ada", "L", {}, {u"4711"_s, u"0171 2345678"_s, u"+43 664 123456"_s}),
          contact("b", "Bert", "L", {}, {u"4711"_s}), contact("c", "Cleo", "L", {}, {u"?"_s})});
    const auto phone = [&](const char* name) {
        const auto people = lookup.people(QString::fromUtf8(name));
        return people.size() == 1 ? people.front().phone : u"not one"_s;
    };
    EXPECT_EQ(phone("Ada"), u"+491712345678"_s);
    EXPECT_EQ(phone("Bert"), u"4711"_s);
    EXPECT_EQ(phone("Cleo"), std::nullopt);
}

TEST_F(ContactsLookupTest, onePersonInTwoAddressBooksIsOneChoice) {
    Contact byMail = contact("eds", "Paul", "Meyer");
    byMail.emails = {u"paul@example.org"_s};
    know({contact("vdir", "Paul", "Meyer", {}, {u"0171 2345678"_s}), byMail,
          contact("other", "Paul", "Meyer", {}, {u"0172 1111111"_s})});
    EXPECT_THAT(lookup.people(u"paul"_s),
                ElementsAre(ContactsLookup::Person{u"vdir"_s, u"Paul Meyer"_s, u"+491712345678"_s,
                                                   u"paul@example.org"_s},
                            ContactsLookup::Person{u"other"_s, u"Paul Meyer"_s, u"+491721111111"_s,
                                                   std::nullopt}));
}

TEST_F(ContactsLookupTest, withoutLeaveNobodyIsKnown) {
    store.setAuthorization(platform::ContactStore::Authorization::denied);
    know({contact("1", "Paul", "Meyer")});
    EXPECT_EQ(lookup.authorizationStatus(), 2);
    EXPECT_THAT(names("paul"), IsEmpty());
    store.setAuthorization(platform::ContactStore::Authorization::authorized);
    int refreshed = 0;
    lookup.refresh([&] { ++refreshed; });
    lookup.refresh([&] { ++refreshed; }); // the first answer is no longer of interest
    EXPECT_THAT(names("paul"), IsEmpty());
    scheduler.advanceTo(scheduler.now() + 1s);
    EXPECT_EQ(refreshed, 1);
    EXPECT_THAT(names("paul"), ElementsAre("Paul Meyer"));
}

} // namespace
} // namespace skipnest::voice
