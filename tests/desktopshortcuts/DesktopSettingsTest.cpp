// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/keys/DesktopSettings.h"
#include "platform/linux/keys/SystemSettings.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <xkbcommon/xkbcommon-keysyms.h>

#include <sys/stat.h>

namespace skipnest::linuxdesktop {
namespace {

using platform::CarbonModifiers;
using platform::DesktopShortcut;
using testing::ElementsAre;
using testing::IsEmpty;

class NoSettings final : public SettingsSource {
public:
    [[nodiscard]] QStringList keys(const QString&) const override { return {}; }
    [[nodiscard]] QStringList texts(const QString&, const QString&, const QString&) const override {
        return {};
    }
};

class DesktopSettingsTest : public testing::Test {
protected:
    DesktopSettingsTest() {
        QProcessEnvironment environment;
        environment.insert(QStringLiteral("HOME"), path("home"));
        environment.insert(QStringLiteral("XDG_CONFIG_DIRS"), path("system"));
        session = std::make_unique<DesktopSession>(environment);
        session->configFolders = {path("system")}; // without this machine's own
    }
    [[nodiscard]] QString path(const char* name) const {
        return folder.filePath(QLatin1String(name));
    }
    void write(const char* name, const QByteArray& text) {
        QDir().mkpath(QFileInfo(path(name)).path());
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    [[nodiscard]] platform::DesktopShortcutReading read() const {
        return readDesktopSettings(*session, DesktopKeyNames(KeyboardMap{}), NoSettings());
    }

    QTemporaryDir folder;
    std::unique_ptr<DesktopSession> session;
};

QByteArray openboxFile(const char* key) {
    return "<openbox_config><keyboard><keybind key='" + QByteArray(key) +
           "'><action name='Close'/></keybind></keyboard></openbox_config>";
}

TEST_F(DesktopSettingsTest, TakesTheFileThatTheRunningDesktopReads) {
    session->windowManager = QStringLiteral("Openbox");
    EXPECT_THAT(read().sources, IsEmpty());
    write("system/openbox/rc.xml", openboxFile("W-a"));
    write("home/.config/i3/config", "bindsym Mod4+i kill");
    const auto only = [this] {
        const auto reading = read();
        EXPECT_EQ(reading.sources.size(), 1);
        EXPECT_EQ(reading.shortcuts.size(), 1U);
        return reading.shortcuts.empty() ? -1 : reading.shortcuts.front().keyCode;
    };
    constexpr int kVKA = 0, kVKB = 11, kVKC = 8, kVKD = 2;
    EXPECT_EQ(only(), kVKA);
    write("home/.config/openbox/rc.xml", openboxFile("W-b"));
    EXPECT_EQ(only(), kVKB);
    write("home/.config/openbox/lxqt-rc.xml", openboxFile("W-c"));
    session->currentDesktop = QStringLiteral("LXQt");
    EXPECT_EQ(only(), kVKC);
    write("own.xml", openboxFile("W-d"));
    session->openboxFile = path("own.xml");
    EXPECT_EQ(only(), kVKD);
}

TEST_F(DesktopSettingsTest, NamesTheOwnerAndLeavesOutWhatNoKeyHas) {
    session->currentDesktop = QStringLiteral("i3");
    write("home/.config/i3/config",
          "bindsym Mod4+t exec term\nbindsym Mod4+button1 kill\nbindsym Mod1+XF86Mail x\n"
          "bindsym Mod4+Tab a\nbindsym Mod4+Tab a\nbindsym Super_L exec menu\n"
          "include ~/extra/*.conf\ninclude more.conf\n");
    write("home/extra/one.conf", "bindsym Control+Mod1+Prior x");
    write("home/.config/i3/more.conf", "bindsym Mod1+F4 kill");
    write("home/extra/two.txt", "bindsym Mod4+z x");
    const auto reading = read();
    const QString i3 = QStringLiteral("i3");
    EXPECT_THAT(
        reading.shortcuts,
        ElementsAre(DesktopShortcut{17, CarbonModifiers::command, i3, QStringLiteral("exec term")},
                    DesktopShortcut{48, CarbonModifiers::command, i3, QStringLiteral("a")},
                    DesktopShortcut{116, CarbonModifiers::control | CarbonModifiers::option, i3,
                                    QStringLiteral("x")},
                    DesktopShortcut{118, CarbonModifiers::option, i3, QStringLiteral("kill")}));
    EXPECT_TRUE(reading.reactsToSuperTap);
    EXPECT_EQ(reading.superTapOwner, i3);
    EXPECT_EQ(reading.sources.size(), 3);
}

TEST_F(DesktopSettingsTest, HugeFilesFoldersAndPipesAreLeftOut) {
    session->windowManager = QStringLiteral("Openbox");
    session->openboxFile = path("pipe");
    ASSERT_EQ(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    write("home/.config/openbox/rc.xml", openboxFile("W-b") + QByteArray(qsizetype{1} << 20, ' '));
    QDir().mkpath(path("system/openbox/rc.xml"));
    EXPECT_THAT(read().sources, IsEmpty());
}

// A layout without the letter: desktops then take the key of a US keyboard.
TEST(DesktopKeyNamesTest, FollowsTheLayoutAndFallsBackToTheUsKeyboard) {
    KeyboardMap german;
    german.symbols[6] = XKB_KEY_y;
    german.symbols[16] = XKB_KEY_z;
    german.keycodes[6] = 52;
    const DesktopKeyNames names(german);
    const auto code = [&names](const char* keysym) {
        return names.keyCode({0, QLatin1String(keysym), 0});
    };
    EXPECT_EQ(code("z"), 16);
    EXPECT_EQ(code("Z"), 16);
    EXPECT_EQ(code("q"), 12);
    EXPECT_EQ(code("page_up"), 116);
    EXPECT_EQ(code("ISO_Left_Tab"), 48);
    EXPECT_EQ(code("Above_Tab"), 50);
    EXPECT_EQ(code("disabled"), std::nullopt);
    EXPECT_EQ(code(""), std::nullopt);
    EXPECT_EQ(names.keyCode({0, {}, 52}), 6);
    EXPECT_EQ(names.keyCode({0, {}, 53}), std::nullopt);
}

// On a machine with schemas and on one without, neither unknown names nor wrong paths end the
// program, which is what GIO does about them by itself.
TEST(SystemSettingsTest, AsksNothingThatIsNotInstalled) {
    const SystemSettings settings;
    const QString wm = QStringLiteral("org.gnome.desktop.wm.keybindings");
    EXPECT_THAT(settings.keys(QStringLiteral("com.example.none")), IsEmpty());
    EXPECT_THAT(settings.texts(QStringLiteral("com.example.none"), {}, QStringLiteral("x")),
                IsEmpty());
    EXPECT_THAT(settings.texts(wm, {}, QStringLiteral("no-such-key")), IsEmpty());
    EXPECT_THAT(settings.texts(wm, QStringLiteral("no path"), QStringLiteral("close")), IsEmpty());
    if (!settings.keys(wm).isEmpty()) {
        EXPECT_THAT(settings.texts(wm, {}, QStringLiteral("close")), Not(IsEmpty()));
    }
}

} // namespace
} // namespace skipnest::linuxdesktop
