// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/ApplicationIdentity.h"
#include "platform/linux/BundleIdentifiers.h"

#include <gmock/gmock.h>

#include <ostream>

namespace skipnest::linuxdesktop {
namespace {

DesktopEntry entry(const char* id, const char* programs, const char* wmClass = "",
                   const char* arguments = "") {
    DesktopEntry made;
    made.id = QString::fromLatin1(id);
    made.path = QStringLiteral("/apps/%1.desktop").arg(made.id);
    made.name = made.id;
    made.startupWmClass = QString::fromLatin1(wmClass);
    made.programs = QString::fromLatin1(programs).split(u' ', Qt::SkipEmptyParts);
    made.arguments = QString::fromLatin1(arguments).split(u' ', Qt::SkipEmptyParts);
    return made;
}

DesktopEntry inTerminal(DesktopEntry made) {
    made.terminal = true;
    return made;
}

// A machine with one of everything that has ever been taken for something else.
const DesktopEntryIndex& installed() {
    static const DesktopEntryIndex index({
        entry("FixtureOne", "xterm", "FixtureOne", "-class FixtureOne"),
        entry("FixtureTwo", "xterm", "FixtureTwo", "-class FixtureTwo"),
        entry("debian-xterm", "xterm", "XTerm"),
        entry("debian-uxterm", "uxterm", "UXTerm"),
        entry("loose", "xterm", "", "-class Loose"),
        inTerminal(entry("vim", "vim vim.basic")),
        entry("org.gnome.Terminal", "gnome-terminal"),
        entry("mate-terminal", "mate-terminal"),
        entry("libreoffice-writer", "libreoffice soffice", "libreoffice-writer", "--writer"),
        entry("libreoffice-calc", "libreoffice soffice", "libreoffice-calc", "--calc"),
        entry("code", "code", "Code"),
        entry("slack", "slack", "Slack"),
        entry("discord", "Discord", "discord"),
        entry("obsidian", "obsidian", "wrong-class"),
        entry("jetbrains-idea", "idea.sh", "jetbrains-idea"),
        entry("google-chrome", "google-chrome-stable"),
        entry("chromium", "chromium"),
        entry("chrome-abc-Default", "chromium", "crx_abc", "--app-id=abc"),
        entry("whatsapp-web", "google-chrome-stable", "web.whatsapp.com",
              "--app=https://web.whatsapp.com"),
        entry("firefox-esr", "firefox-esr", "firefox-esr"),
        entry("org.signal.Signal", "signal-desktop"),
        entry("spotify_spotify", "spotify"),
        entry("org.xfce.mousepad", "mousepad"),
        entry("org.xfce.mousepad-settings", "mousepad", "", "--preferences"),
        entry("thunar", "thunar"),
        entry("pcmanfm-qt", "pcmanfm-qt"),
        entry("featherpad", "featherpad"),
        entry("python3.11", "python3.11"),
        entry("org.gnome.meld", "meld"),
    });
    return index;
}

struct Row {
    const char* what;
    const char* instance;
    const char* windowClass;
    const char* commandLine; // its first word is the executable
    const char* expected;    // desktop id; in brackets: no entry, the identity itself
    const char* gtkId = "";
    const char* launchedFrom = "";
};

// NOLINTNEXTLINE(readability-identifier-naming): the name GoogleTest looks for.
void PrintTo(const Row& row, std::ostream* out) {
    *out << row.what;
}

class IdentityTest : public testing::TestWithParam<Row> {};

TEST_P(IdentityTest, FindsTheApplicationOfAWindow) {
    const Row& row = GetParam();
    WindowFacts facts;
    facts.gtkApplicationId = QString::fromLatin1(row.gtkId);
    facts.instance = QString::fromLatin1(row.instance);
    facts.windowClass = QString::fromLatin1(row.windowClass);
    facts.commandLine = QString::fromLatin1(row.commandLine).split(u' ', Qt::SkipEmptyParts);
    facts.executable = facts.commandLine.value(0);
    if (*row.launchedFrom != '\0')
        facts.launchedFrom =
            QStringLiteral("/apps/%1.desktop").arg(QLatin1String(row.launchedFrom));
    const ApplicationIdentity found = identify(facts, installed());
    const QString expected = QString::fromLatin1(row.expected);
    if (expected.startsWith(u'[')) {
        EXPECT_EQ(found.path, QString()) << found.path.toStdString();
        EXPECT_EQ(found.id, expected.mid(1).chopped(1)) << found.id.toStdString();
    } else {
        EXPECT_EQ(found.path, QStringLiteral("/apps/%1.desktop").arg(expected))
            << found.id.toStdString();
        EXPECT_EQ(found.bundleIdentifier, bundleIdentifierOf(expected));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Windows, IdentityTest,
    testing::Values(
        Row{"plain xterm", "xterm", "XTerm", "/usr/bin/xterm", "debian-xterm"},
        Row{"own class", "xterm", "FixtureOne", "/usr/bin/xterm -class FixtureOne", "FixtureOne"},
        Row{"its sibling", "xterm", "FixtureTwo", "/usr/bin/xterm -class FixtureTwo", "FixtureTwo"},
        Row{"a class nobody has", "xterm", "Other", "/usr/bin/xterm -class Other", "debian-xterm"},
        Row{"own class without StartupWMClass", "xterm", "Loose", "/usr/bin/xterm -class Loose",
            "loose"},
        Row{"uxterm runs xterm", "xterm", "UXTerm", "/usr/bin/xterm -class UXTerm",
            "debian-uxterm"},
        Row{"vim from the menu", "xterm", "XTerm", "/usr/bin/xterm -e vim", "vim", "", "vim"},
        Row{"gnome-terminal's server", "gnome-terminal-server", "Gnome-terminal",
            "/usr/libexec/gnome-terminal-server", "org.gnome.Terminal"},
        Row{"mate-terminal", "mate-terminal", "Mate-terminal", "/usr/bin/mate-terminal",
            "mate-terminal"},
        Row{"Writer", "libreoffice", "libreoffice-writer",
            "/usr/lib/libreoffice/program/soffice.bin --writer", "libreoffice-writer"},
        Row{"Calc from Writer's process", "libreoffice", "libreoffice-calc",
            "/usr/lib/libreoffice/program/soffice.bin --writer", "libreoffice-calc"},
        Row{"Electron: code", "code", "Code", "/usr/share/code/code", "code"},
        Row{"Electron: slack", "slack", "Slack", "/usr/lib/slack/slack", "slack"},
        Row{"Electron: discord", "discord", "discord", "/usr/share/discord/Discord", "discord"},
        Row{"entry with a wrong class", "obsidian", "obsidian", "/opt/Obsidian/obsidian",
            "obsidian"},
        Row{"Java with an entry", "sun-awt-X11-XFramePeer", "jetbrains-idea",
            "/opt/idea/jbr/bin/java -Xmx750m Main", "jetbrains-idea"},
        Row{"Java without", "sun-awt-X11-XFramePeer", "org-foo-Main", "/usr/bin/java -jar foo.jar",
            "[org-foo-main]"},
        Row{"Chromium", "chromium", "Chromium", "/usr/lib/chromium/chromium", "chromium"},
        Row{"Chromium with a profile", "chromium (/home/x/profile)", "Chromium",
            "/usr/lib/chromium/chromium --user-data-dir=/home/x/profile", "chromium"},
        Row{"web application", "crx_abc", "Chromium", "/usr/lib/chromium/chromium",
            "chrome-abc-Default"},
        Row{"web application without an entry", "crx_def", "Chromium", "/usr/lib/chromium/chromium",
            "[crx_def]", "", "chromium"},
        Row{"site in an own window", "web.whatsapp.com", "Google-chrome",
            "/opt/google/chrome/chrome", "whatsapp-web"},
        Row{"Chrome", "google-chrome", "Google-chrome", "/opt/google/chrome/chrome",
            "google-chrome"},
        Row{"Firefox ESR", "Navigator", "firefox-esr", "/usr/lib/firefox-esr/firefox-esr",
            "firefox-esr"},
        Row{"Flatpak", "signal", "Signal", "/app/Signal/signal-desktop", "org.signal.Signal"},
        Row{"Snap", "spotify", "Spotify", "/snap/spotify/60/usr/share/spotify/spotify",
            "spotify_spotify"},
        Row{"GTK application id", "mousepad", "Mousepad", "/usr/bin/mousepad", "org.xfce.mousepad",
            "org.xfce.mousepad"},
        Row{"the same without", "mousepad", "Mousepad", "/usr/bin/mousepad", "org.xfce.mousepad"},
        Row{"GTK id without an entry", "Thunar", "Thunar", "/usr/bin/thunar", "thunar",
            "org.xfce.Thunar"},
        Row{"pcmanfm-qt", "pcmanfm-qt", "pcmanfm-qt", "/usr/bin/pcmanfm-qt /home", "pcmanfm-qt"},
        Row{"featherpad", "featherpad", "FeatherPad", "/usr/bin/featherpad", "featherpad"},
        Row{"a Python program is no Python", "tool", "Tool", "/usr/bin/python3.11 /usr/bin/tool",
            "[tool]"},
        Row{"a script is its program", "window", "Window", "/usr/bin/python3.11 /usr/bin/meld a b",
            "org.gnome.meld"},
        Row{"started from its entry", "x", "Nameless", "/opt/launcher/bin/x", "featherpad", "",
            "featherpad"},
        Row{"nothing but a class", "", "Old", "", "[old]"}));

// Two entries for one program: whichever is pressed, the running copy is found.
TEST(IdentityTest, AnotherEntryOfTheSameProgramFindsItRunning) {
    const WindowFacts plain{{},
                            QStringLiteral("xterm"),
                            QStringLiteral("XTerm"),
                            QStringLiteral("/usr/bin/xterm"),
                            {QStringLiteral("xterm")},
                            {}};
    const WindowFacts own{
        {},
        QStringLiteral("xterm"),
        QStringLiteral("FixtureOne"),
        QStringLiteral("/usr/bin/xterm"),
        {QStringLiteral("xterm"), QStringLiteral("-class"), QStringLiteral("FixtureOne")},
        {}};
    const DesktopEntry copy = entry("my-terminal", "xterm");
    EXPECT_TRUE(alsoBelongsTo(plain, copy));
    EXPECT_FALSE(alsoBelongsTo(own, copy));
    EXPECT_FALSE(alsoBelongsTo(plain, entry("FixtureOne", "xterm", "FixtureOne")));
    EXPECT_FALSE(alsoBelongsTo(plain, entry("loose", "xterm", "", "-class Loose")));
    EXPECT_TRUE(alsoBelongsTo(own, entry("second", "xterm", "FixtureOne")));
}

TEST(BundleIdentifierTest, PackagesOfOneProgramShareTheIdentifier) {
    const auto of = [](const char* id) {
        return bundleIdentifierOf(QString::fromLatin1(id)).toStdString();
    };
    EXPECT_EQ(of("firefox-esr.desktop"), "org.mozilla.firefox");
    EXPECT_EQ(of("Google-chrome"), "com.google.Chrome");
    EXPECT_EQ(of("com.slack.Slack.desktop"), "com.tinyspeck.slackmacgap");
    EXPECT_EQ(of("org.xfce.mousepad.desktop"), "org.xfce.mousepad");
}

} // namespace
} // namespace skipnest::linuxdesktop
