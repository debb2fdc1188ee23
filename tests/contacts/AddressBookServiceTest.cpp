// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/contacts/AddressBookService.h"

#include "tests/contacts/ScriptedAddressBooks.h"

#include <QCoreApplication>

#include <gmock/gmock.h>

#include <algorithm>
#include <future>

namespace skipnest::tests {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using linuxdesktop::AddressBookService;
using platform::Contact;
using platform::Failure;
using platform::Result;
using testing::ElementsAre;
using testing::IsEmpty;
using Manner = ScriptedAddressBooks::Source::Manner;

// What the service gives to a worker, while the stand-in answers here.
Result<std::vector<Contact>> read(const AddressBookService& service) {
    auto reading = std::async(std::launch::async, [&service] { return service.read(); });
    while (reading.wait_for(1ms) != std::future_status::ready)
        QCoreApplication::processEvents();
    return reading.get();
}
std::vector<std::string> names(const Result<std::vector<Contact>>& people) {
    std::vector<std::string> found;
    if (people) {
        for (const Contact& contact : *people)
            found.push_back(contact.formattedName.toStdString());
    }
    std::ranges::sort(found);
    return found;
}
QString card(const char* name) {
    return u"BEGIN:VCARD\r\nVERSION:3.0\r\nUID:%1\r\nFN:%1\r\nEND:VCARD"_s.arg(
        QString::fromLatin1(name));
}
QString book(const char* backend, const char* enabled = "true") {
    return u"[Data Source]\nDisplayName=Book\nEnabled=%1\n\n[Address Book]\nBackendName=%2\n"_s.arg(
        QString::fromLatin1(enabled), QString::fromLatin1(backend));
}

TEST(AddressBookServiceTest, givesThePeopleOfTheEnabledBooksOnThisMachine) {
    ScriptedAddressBooks books(ScriptedAddressBooks::Service::installed);
    if (books.busAddress().isEmpty())
        GTEST_SKIP() << "dbus-daemon does not start";
    books.setSource(u"mine"_s, {book("local"), {card("Ada"), card("Bert"), u"no card"_s}});
    books.setSource(u"synced"_s, {book("carddav"), {card("Cleo")}});
    books.setSource(u"company"_s, {book("ldap"), {card("not asked")}});
    books.setSource(u"off"_s, {book("local", "false"), {card("not asked")}});
    books.setSource(u"mail"_s, {u"[Data Source]\nEnabled=true\n\n[Mail Account]\n"_s, {}});
    books.setSource(u"broken"_s, {u"[Address Book\n=="_s, {}});
    const AddressBookService service(books.busAddress());
    EXPECT_TRUE(service.isInstalled());
    const auto people = read(service);
    ASSERT_TRUE(people) << qPrintable(people.failure().detail);
    EXPECT_THAT(names(people), ElementsAre("Ada", "Bert", "Cleo"));
    EXPECT_EQ(books.calls().join(u", "_s),
              u"OpenAddressBook mine, Open mine, GetContactList mine, Close mine, "
              "OpenAddressBook synced, Open synced, GetContactList synced, Close synced");
}

TEST(AddressBookServiceTest, aBookThatDoesNotAnswerHasNobody) {
    ScriptedAddressBooks books(ScriptedAddressBooks::Service::installed);
    if (books.busAddress().isEmpty())
        GTEST_SKIP() << "dbus-daemon does not start";
    books.setSource(u"a"_s, {book("local"), {card("Ada")}, Manner::failsToOpen});
    books.setSource(u"b"_s, {book("local"), {card("Bert")}, Manner::isSilent});
    books.setSource(u"c"_s, {book("local"), {card("Cleo")}, Manner::answersNonsense});
    books.setSource(u"d"_s, {book("local"), {card("Dora")}});
    EXPECT_THAT(names(read(AddressBookService(books.busAddress(), 300ms))), ElementsAre("Dora"));
}

TEST(AddressBookServiceTest, whereItIsNotInstalledNothingIsStarted) {
    ScriptedAddressBooks books(ScriptedAddressBooks::Service::missing);
    if (books.busAddress().isEmpty())
        GTEST_SKIP() << "dbus-daemon does not start";
    const AddressBookService nowhere(u"unix:path=/nowhere"_s);
    const AddressBookService missing(books.busAddress());
    for (const AddressBookService& service : {nowhere, missing}) {
        EXPECT_FALSE(service.isInstalled());
        const auto people = read(service);
        ASSERT_FALSE(people);
        EXPECT_EQ(people.failure().kind, Failure::Kind::unavailable);
    }
    EXPECT_THAT(books.calls(), IsEmpty());
}

} // namespace
} // namespace skipnest::tests
