// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/keys/DesktopClaims.h"
#include "platform/linux/keys/RunningDesktops.h"

#include <gmock/gmock.h>

#include <map>

namespace skipnest::linuxdesktop {
namespace {

using platform::CarbonModifiers;
using testing::ElementsAre;
using testing::IsEmpty;

std::string text(const KeySpelling& key) {
    QString text;
    for (const auto& [carbon, letter] :
         {std::pair{CarbonModifiers::control, u'C'}, std::pair{CarbonModifiers::option, u'A'},
          std::pair{CarbonModifiers::shift, u'S'}, std::pair{CarbonModifiers::command, u'W'}}) {
        if ((key.carbonModifiers & carbon) != 0)
            text += QStringLiteral("%1-").arg(QChar(letter));
    }
    text += key.keycode != 0 ? QStringLiteral("#%1").arg(key.keycode) : key.keysym;
    return text.toStdString();
}

std::vector<std::string> listed(const DesktopClaims& claims) {
    std::vector<std::string> lines;
    for (const DesktopClaims::Claim& claim : claims.claims)
        lines.push_back(text(claim.key) + ' ' + claim.action.toStdString());
    return lines;
}

struct SpellingRow {
    std::optional<KeySpelling> (*parse)(const QString&);
    const char* written;
    const char* means; // null: no combo
};

TEST(KeySpellingTest, UnderstandsEachDesktopsWriting) {
    const SpellingRow rows[] = {
        {gtkSpelling, "<Primary><Alt>Left", "C-A-Left"},
        {gtkSpelling, " <super><Shift>s", "S-W-s"},
        {gtkSpelling, "<Release><Mod4>x", "W-x"},
        {gtkSpelling, "Print", "Print"},
        {gtkSpelling, "<Hyper>x", nullptr},
        {gtkSpelling, "<Super", nullptr},
        {gtkSpelling, "<Super>", nullptr},
        {gtkSpelling, "", nullptr},
        {kdeSpelling, "Meta+Ctrl+PgUp", "C-W-Prior"},
        {kdeSpelling, "Alt++", "A-plus"},
        {kdeSpelling, "Meta+,", "W-comma"},
        {kdeSpelling, "Ctrl+Shift+Backtab", "C-S-Tab"},
        {kdeSpelling, "Num+5", nullptr},
        {kdeSpelling, "Meta+", nullptr},
        {i3Spelling, "Mod4+Shift+Return", "S-W-Return"},
        {i3Spelling, "ctrl+Mod1+t", "C-A-t"},
        {i3Spelling, "Mode_switch+x", nullptr},
        {i3Spelling, "+", "+"},
        {openboxSpelling, "C-A-Left", "C-A-Left"},
        {openboxSpelling, "W-0x6f", "W-#111"},
        {openboxSpelling, "W-0x6fff", nullptr},
        {openboxSpelling, "A-S-Tab", "A-S-Tab"},
        {openboxSpelling, "H-x", nullptr},
        {openboxSpelling, "W--", "W--"}, // a name that no key has
    };
    for (const SpellingRow& row : rows) {
        SCOPED_TRACE(row.written);
        const auto key = row.parse(QString::fromUtf8(row.written));
        ASSERT_EQ(key.has_value(), row.means != nullptr);
        if (key) {
            EXPECT_EQ(text(*key), row.means);
        }
    }
    EXPECT_TRUE(kdeSpelling(QStringLiteral("Meta"))->isSuperTap());
    EXPECT_TRUE(gtkSpelling(QStringLiteral("Super_L"))->isSuperTap());
    EXPECT_FALSE(gtkSpelling(QStringLiteral("<Shift>Super_L"))->isSuperTap());
}

TEST(DesktopClaimsTest, OpenboxTakesTheFirstKeyOfAChainAndNoMouse) {
    const QByteArray file = R"(<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc"><keyboard>
  <chainQuitKey>C-g</chainQuitKey>
  <keybind key="W-d"><action name="ToggleShowDesktop"/></keybind>
  <keybind key="W-t C-A-t"><action name="Execute"><startupnotify><enabled>true</enabled>
    </startupnotify><command>xterm  -e top</command></action><action name="Raise"/></keybind>
  <keybind key="C-x"><keybind key="C-s"><action name="Iconify"/></keybind></keybind>
  <keybind key="W-e"><action name="Execute"><execute>thunar</execute></action></keybind>
</keyboard><mouse><context name="Frame"><mousebind button="A-Left" action="Press">
  <action name="Move"/></mousebind></context></mouse></openbox_config>)";
    EXPECT_THAT(listed(openboxClaims(file)),
                ElementsAre("W-d ToggleShowDesktop", "W-t Execute: xterm -e top",
                            "C-A-t Execute: xterm -e top", "C-x key chain", "W-e Execute: thunar"));
    // Cut off in the middle of a download or an edit: what came before holds.
    EXPECT_THAT(listed(openboxClaims(file.left(file.indexOf("C-A-t")))),
                ElementsAre("W-d ToggleShowDesktop"));
    EXPECT_THAT(listed(openboxClaims("<other><keyboard><keybind key='W-d'/></keyboard></other>")),
                IsEmpty());
}

TEST(DesktopClaimsTest, XfceLaysThePersonsCombosOverTheDefaults) {
    const QByteArray system = R"(<channel name="xfce4-keyboard-shortcuts" version="1.0">
 <property name="commands" type="empty"><property name="default" type="empty">
  <property name="&lt;Alt&gt;F2" type="string" value="xfrun4"/>
  <property name="&lt;Primary&gt;Escape" type="string" value="xfdesktop --menu"/>
 </property></property>
 <property name="xfwm4" type="empty"><property name="default" type="empty">
  <property name="&lt;Alt&gt;Tab" type="string" value="cycle_windows_key"/>
  <property name="&lt;Alt&gt;F7" type="string" value="move_window_key"/>
 </property></property></channel>)";
    const auto person = [](const char* overrides) {
        return QByteArray(R"(<channel name="xfce4-keyboard-shortcuts" version="1.0">
 <property name="commands" type="empty"><property name="custom" type="empty">
  <property name="&lt;Alt&gt;F2" type="empty"/>
  <property name="&lt;Super&gt;e" type="string" value="thunar">
    <property name="startup-notify" type="bool" value="true"/></property>
  <property name="Super_L" type="string" value="xfce4-popup-whiskermenu"/>
  <property name="override" type="bool" value=")") +
               overrides + R"("/>
 </property></property><property name="providers" type="array"/></channel>)";
    };
    EXPECT_THAT(listed(xfceClaims(system, {})),
                ElementsAre("A-F2 xfrun4", "C-Escape xfdesktop --menu", "A-F7 move_window_key",
                            "A-Tab cycle_windows_key"));
    const DesktopClaims laid = xfceClaims(system, person("false"));
    EXPECT_THAT(listed(laid), ElementsAre("C-Escape xfdesktop --menu", "W-e thunar",
                                          "A-F7 move_window_key", "A-Tab cycle_windows_key"));
    EXPECT_TRUE(laid.superTap);
    EXPECT_THAT(listed(xfceClaims(system, person("true"))),
                ElementsAre("W-e thunar", "A-F7 move_window_key", "A-Tab cycle_windows_key"));
    EXPECT_THAT(listed(xfceClaims("<channel><property", QByteArray("\0\xff<", 3))), IsEmpty());
}

TEST(DesktopClaimsTest, KdeReadsTheActiveCombosAndTheLauncher) {
    const QByteArray shortcuts = R"([kwin]
_k_friendly_name=KWin
Overview=Meta+W,Meta+W,Toggle Overview
Walk Through Windows=Alt+Tab\tMeta+Tab,Alt+Tab,Walk Through Windows
Kill Window=none,Meta+Ctrl+Esc,Kill Window
Comma=Meta+\\,,none,Comma, with another
Empty=,,Empty

[services][org.kde.konsole.desktop]
_launch=Ctrl+Alt+T
# Comment=Meta+C,,x
broken line
)";
    const QByteArray noTap = "[ModifierOnlyShortcuts]\nMeta=\n";
    EXPECT_THAT(listed(kdeClaims(shortcuts, noTap)),
                ElementsAre("W-W Toggle Overview", "A-Tab Walk Through Windows",
                            "W-Tab Walk Through Windows", "W-comma Comma", "C-A-T _launch"));
    const QByteArray launcher =
        "[plasmashell]\nactivate application launcher=Meta\\tAlt+F1,Meta,Launcher";
    EXPECT_FALSE(kdeClaims(shortcuts, noTap).superTap);
    EXPECT_TRUE(kdeClaims(shortcuts, "[Windows]\nMeta=x").superTap) << "the default of Plasma";
    EXPECT_TRUE(kdeClaims(launcher, noTap).superTap);
    // Cut off anywhere: what is whole holds, and nothing is made up.
    for (qsizetype length = 0; length < shortcuts.size(); ++length)
        EXPECT_LE(listed(kdeClaims(shortcuts.left(length), noTap)).size(), 5U) << length;
}

TEST(DesktopClaimsTest, I3ReplacesVariablesFollowsIncludesAndLeavesModesOut) {
    const I3ConfigFile file{QStringLiteral("/home/p/.config/i3"), R"(# i3 config
set $mod Mod4
set $modifier "Mod1"
set_from_resource $term i3wm.term xterm
bindsym $mod+Return exec --no-startup-id $term
bindsym --release --no-repeat $mod+Shift+q \
    kill
bindcode $modifier+24 exec quit
bindsym $mod+button4 workspace next
bindsym $mod+d exec dmenu_run
mode "resize" {
    bindsym h resize shrink width
    bindsym $mod+r mode default
}
bindsym {
    $mod+1 workspace 1
}
bar { colors { background #000000 } }
unbindsym $mod+d
bindsym --release Super_L exec rofi
include conf.d/*.conf
)"};
    const I3Include include = [](const QString& pattern, const QString& folder) {
        EXPECT_EQ(folder, QStringLiteral("/home/p/.config/i3"));
        EXPECT_EQ(pattern, QStringLiteral("conf.d/*.conf"));
        // Includes itself, and opens a block that it never closes.
        return std::vector<I3ConfigFile>{
            {folder, "bindsym $mod+f fullscreen\ninclude conf.d/*.conf\nmode \"x\" {\n"}};
    };
    const DesktopClaims claims = i3Claims(file, include);
    EXPECT_THAT(listed(claims),
                ElementsAre("W-Return exec --no-startup-id xterm", "S-W-q kill", "A-#24 exec quit",
                            "W-button4 workspace next", "W-1 workspace 1", "W-f fullscreen"));
    EXPECT_TRUE(claims.superTap);

    // Variables that hold each other twice: a few lines that would mean more memory than there is.
    QByteArray bomb = "set $v0 " + QByteArray(64, 'x') + '\n';
    for (int i = 1; i < 60; ++i) {
        const QByteArray before = "$v" + QByteArray::number(i - 1) + ' ';
        bomb += "set $v" + QByteArray::number(i) + ' ' + before.repeated(400) + '\n';
    }
    EXPECT_THAT(listed(i3Claims({{}, bomb + "bindsym Mod4+$v59 x"}, include)),
                ElementsAre("W-$v59 x"));
}

class FakeSettings final : public SettingsSource {
public:
    [[nodiscard]] QStringList keys(const QString& schema) const override {
        QStringList keys;
        for (const auto& [place, _] : values) {
            if (std::get<0>(place) == schema && std::get<1>(place).isEmpty())
                keys.append(std::get<2>(place));
        }
        return keys;
    }
    [[nodiscard]] QStringList texts(const QString& schema, const QString& path,
                                    const QString& key) const override {
        const auto found = values.find({schema, path, key});
        return found == values.end() ? QStringList() : found->second;
    }
    void set(const char* schema, const char* path, const char* key, const QStringList& value) {
        values[{QLatin1String(schema), QLatin1String(path), QLatin1String(key)}] = value;
    }

private:
    std::map<std::tuple<QString, QString, QString>, QStringList> values;
};

TEST(DesktopClaimsTest, GtkDesktopsBindActionsAndThePersonsOwnCommands) {
    FakeSettings settings;
    const char* media = "org.gnome.settings-daemon.plugins.media-keys";
    const char* custom = "org.gnome.settings-daemon.plugins.media-keys.custom-keybinding";
    const char* path = "/org/gnome/settings-daemon/plugins/media-keys/custom-keybindings/custom0/";
    settings.set("org.gnome.desktop.wm.keybindings", "", "switch-windows",
                 {QStringLiteral("<Alt>Tab"), QStringLiteral("<Super>Above_Tab")});
    settings.set("org.gnome.desktop.wm.keybindings", "", "minimize", {QStringLiteral("disabled")});
    settings.set(media, "", "custom-keybindings", {QLatin1String(path)});
    settings.set(custom, path, "name", {QStringLiteral("Files")});
    settings.set(custom, path, "binding", {QStringLiteral("<Primary><Alt>f")});
    settings.set("org.gnome.mutter", "", "overlay-key", {QStringLiteral("Super_L")});
    settings.set("org.cinnamon.desktop.keybindings", "", "custom-list",
                 {QStringLiteral("custom3"), QStringLiteral("__dummy__")});
    settings.set("org.cinnamon.desktop.keybindings.custom-keybinding",
                 "/org/cinnamon/desktop/keybindings/custom-keybindings/custom3/", "binding",
                 {QStringLiteral("<Super>c")});
    settings.set("org.mate.Marco.global-keybindings", "", "run-command-terminal",
                 {QStringLiteral("<Control><Alt>t")});

    const DesktopClaims gnome = gsettingsClaims(GtkDesktop::gnome, settings);
    EXPECT_THAT(listed(gnome), ElementsAre("disabled minimize", "A-Tab switch-windows",
                                           "W-Above_Tab switch-windows", "C-A-f Files"));
    EXPECT_TRUE(gnome.superTap);
    EXPECT_THAT(listed(gsettingsClaims(GtkDesktop::cinnamon, settings)), ElementsAre("W-c "));
    EXPECT_THAT(listed(gsettingsClaims(GtkDesktop::mate, settings)),
                ElementsAre("C-A-t run-command-terminal"));
    EXPECT_TRUE(cinnamonMenuTakesSuper(R"({"overlay-key": {"value": "Super_L::Super_R"}})"));
    EXPECT_FALSE(cinnamonMenuTakesSuper(R"({"overlay-key": {"value": "::"}})"));
    EXPECT_FALSE(cinnamonMenuTakesSuper("[1"));
}

TEST(RunningDesktopsTest, OnlyWhatRunsHoldsKeys) {
    using enum KeyDesktop;
    const auto running = [](const char* desktop, const char* manager) {
        return runningDesktops(QLatin1String(desktop), QLatin1String(manager));
    };
    EXPECT_THAT(running("ubuntu:GNOME", "GNOME Shell"), ElementsAre(gnome));
    EXPECT_THAT(running("X-Cinnamon", "Mutter (Muffin)"), ElementsAre(cinnamon));
    EXPECT_THAT(running("LXQt", "Openbox"), ElementsAre(openbox));
    EXPECT_THAT(running("XFCE", "i3"), ElementsAre(xfce, i3));
    EXPECT_THAT(running("MATE", "Metacity (Marco)"), ElementsAre(mate));
    EXPECT_THAT(running("sway", ""), ElementsAre(sway));
    EXPECT_THAT(running("", "dwm"), IsEmpty());
}

} // namespace
} // namespace skipnest::linuxdesktop
