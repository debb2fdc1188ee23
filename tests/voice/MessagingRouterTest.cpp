// SPDX-License-Identifier: Apache-2.0
#include "voice/MessagingRouter.h"

#include <gtest/gtest.h>

namespace skipnest::voice {
namespace {

QString s(const char* text) {
    return QString::fromUtf8(text);
}

std::string written(const std::optional<MessagingRouter::Route>& route) {
    if (!route)
        return "none";
    return QStringLiteral("%1: %2: %3")
        .arg(route->app->display, route->contact, route->message.value_or(s("-")))
        .toStdString();
}

TEST(MessagingRouterTest, routesOnlyWhatIsForAPerson) {
    struct Row {
        const char* phrase;
        const char* route;
    };
    const Row rows[] = {
        // An application alone, or one that something else is done with.
        {"whatsapp", "none"},
        {"go to whatsapp and write hello there", "none"},
        {"open the slack window", "none"},
        {"search for discord download", "none"},
        {"quit slack and open notes", "none"},
        {"open slack and close it", "none"},
        {"write see you on slack", "none"},
        {"schreibe Wir sehen uns in Teams", "none"},
        {"open the slackware page", "none"},
        {"whatsapp is what my sister and I use most", "none"},
        {"move the file from teams to documents", "none"},
        // The row of the target, then the first of the table; a trigger word last.
        {"slack go to whatsapp team", "Slack: whatsapp team: -"},
        {"open notes and slack anna and telegram", "Slack: anna telegram: -"},
        {"telegram message Tom hi", "Telegram: Tom: hi"},
        {"discord Felix, Nachricht gg", "Discord: Felix: gg"},
        {"message Tom hi", "Messages: Tom: hi"},
        // What leads to the person is none of the name.
        {"whatsapp to my contact the Anna Schmidt please", "WhatsApp: Anna Schmidt: -"},
        {"whatsapp zum Chat mit Jean-Luc", "WhatsApp: Jean-Luc: -"},
        {"whatsapp Paul write", "WhatsApp: Paul: -"},
        // The message is kept as it is.
        {"whatsapp Paul write  a\tb\nC, d.", "WhatsApp: Paul: a b C, d."},
        {"whatsapp Paul schreib ihr", "WhatsApp: Paul: ihr"},
        {"whatsapp Paul schreib ihm Hallo", "WhatsApp: Paul: Hallo"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(written(MessagingRouter::route(s(row.phrase))), row.route) << row.phrase;
}

TEST(MessagingRouterTest, takesFieldsThatWereToldApart) {
    const auto route = [](const char* target, const char* contact, const char* message) {
        return written(MessagingRouter::route(s(target), s(contact), s(message)));
    };
    EXPECT_EQ(route("Microsoft Teams", "Susanne", "hi"), "Teams: Susanne: hi");
    EXPECT_EQ(route("WhatsApp", "als Kontakt Paul", " "), "WhatsApp: Paul: -");
    EXPECT_EQ(route("Telegram message", "Tom", "hi"), "Telegram: Tom: hi");
    EXPECT_EQ(route("WhatsApp", "the", "hi"), "none");
    EXPECT_EQ(route("Notes", "Paul", "hi"), "none");
}

TEST(MessagingRouterTest, knowsItsApplicationsInsideAName) {
    for (const char* name : {"WhatsApp", "whats app web", "my voxup", "Nachrichten", "MS Teams"})
        EXPECT_TRUE(MessagingRouter::isMessagingApp(s(name))) << name;
    for (const char* name : {"", "Mail", "whats", "tea"})
        EXPECT_FALSE(MessagingRouter::isMessagingApp(s(name))) << name;
}

} // namespace
} // namespace skipnest::voice
