// SPDX-License-Identifier: Apache-2.0
#include "tests/x11/InputDesk.h"

namespace skipnest::tests {
namespace {

using KeyboardLayoutTest = InputDesk;

struct NameCase {
    const char* layout;
    std::uint16_t keyCode;
    QString name; // empty: types no text
};

const NameCase names[] = {
    {"us", kVKZ, QStringLiteral("z")},
    {"us", 50, QStringLiteral("`")},
    {"us", 49, QStringLiteral(" ")},
    {"us", 36, {}},
    {"us", 53, {}},
    {"us", 51, {}},
    {"us", 122, {}},
    {"us", 55, {}},
    {"us", 300, {}},
    {"de", kVKZ, QStringLiteral("y")},
    {"de", kVKY, QStringLiteral("z")},
    {"de", 41, QStringLiteral("ö")},
    {"de", 27, QStringLiteral("ß")},
    {"de", 24, QStringLiteral("´")},
    {"de", 50, QStringLiteral("^")},
    {"de", 10, QStringLiteral("<")},
    {"fr", 18, QStringLiteral("&")},
    {"fr", 0, QStringLiteral("q")},
    {"ru", 12, QStringLiteral("й")},
    {"jp", 93, QStringLiteral("\\")},
};

TEST_F(KeyboardLayoutTest, NamesKeysAsTheyTypeInTheActiveLayout) {
    for (const NameCase& row : names) {
        ASSERT_TRUE(runTool(QByteArray("setxkbmap ").append(row.layout).constData()));
        linuxdesktop::X11Keymap map(*display, scheduler);
        const linuxdesktop::X11KeyboardLayout named(map);
        EXPECT_EQ(named.character(row.keyCode).value_or(QString()), row.name)
            << row.layout << " " << row.keyCode;
    }
}

TEST_F(KeyboardLayoutTest, TellsABurstOnceAndOnlyWhatRenamesKeys) {
    int changes = 0;
    const auto observing = layout->observeChanges([&changes] { ++changes; });
    ASSERT_TRUE(runTool("setxkbmap us,de"));
    fingers.lockGroup(1);
    ASSERT_TRUE(waitFor([&changes] { return changes == 1; }));
    EXPECT_EQ(layout->character(kVKZ), QStringLiteral("y"));
    fingers.lockGroup(0);
    ASSERT_TRUE(waitFor([&changes] { return changes == 2; }));
    EXPECT_EQ(layout->character(kVKZ), QStringLiteral("z"));

    // The modifier map changes, no name does.
    int mapChanges = 0;
    const auto maps = keymap->observeChanges([&mapChanges] { ++mapChanges; });
    ASSERT_TRUE(runTool(R"(xmodmap -e "clear mod4" -e "add mod3 = Super_L")"));
    ASSERT_TRUE(waitFor([&mapChanges] { return mapChanges == 1; }));
    EXPECT_EQ(changes, 2);
}

} // namespace
} // namespace skipnest::tests
