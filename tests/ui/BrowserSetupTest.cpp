// SPDX-License-Identifier: Apache-2.0
#include "tests/ui/BrowserScene.h"
#include "tests/ui/UiStage.h"

#include "ui/PopoverModel.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QGuiApplication>
#include <QQuickItem>

#include <gmock/gmock.h>

namespace skipnest::ui {
namespace {

using namespace Qt::StringLiterals;
using platform::PopoverScreen;
using Host = platform::ExtensibleBrowser::Host;

class BrowserSetupTest : public testing::Test {
protected:
    BrowserSetupTest() {
        stage.desk().browserExtensions().setBrowsers(test::severalBrowsers());
        stage.launch();
    }
    [[nodiscard]] BrowserSetup& setup() { return *stage.panels().popoverModel().browsers(); }
    [[nodiscard]] QString screen() { return stage.panels().popoverModel().screen(); }
    [[nodiscard]] QString shown(const QString& item, const char* property) {
        return stage.item(item).property(property).toString();
    }

    test::UiStage stage;
};

TEST_F(BrowserSetupTest, SettingsLeadByKeysToABrowsersPageAndBack) {
    stage.show({PopoverScreen::settings, {}});
    const QAbstractItemModelTester tester(setup().rows());
    EXPECT_EQ(shown(u"browserSummary"_s, "description"),
              u"Chromium: not set up · Brave: connected · Firefox: not connected · "
              "Firefox (Flatpak): cannot be reached"_s);
    stage.item(u"openBrowsers"_s).forceActiveFocus();
    stage.press(Qt::Key_Return);
    EXPECT_EQ(screen(), u"browsers"_s);
    stage.press(Qt::Key_Return);
    EXPECT_EQ(setup().name(), u"Chromium"_s);
    EXPECT_EQ(stage.desk().browserExtensions().browsers().front().host, Host::installed)
        << "whoever opens its page wants it told of the host";
    stage.press(Qt::Key_Escape);
    EXPECT_EQ(setup().chosen(), QString());
    stage.press(Qt::Key_Escape);
    EXPECT_EQ(screen(), u"settings"_s);
}

TEST_F(BrowserSetupTest, ThePageTurnsGreenWhenTheExtensionSaysHello) {
    stage.show({PopoverScreen::browsers, {}, u"org.chromium.Chromium"_s});
    EXPECT_EQ(shown(u"browserState"_s, "kind"), u"info"_s);
    EXPECT_EQ(shown(u"extensionsPage"_s, "value"), u"chrome://extensions"_s);
    EXPECT_FALSE(stage.hasItem(u"signedNote"_s));
    stage.desk().browserExtensions().connect(u"org.chromium.Chromium"_s);
    stage.settle();
    EXPECT_EQ(shown(u"browserState"_s, "kind"), u"success"_s);
    stage.desk().browserExtensions().connect(u"org.chromium.Chromium"_s, false);
    stage.settle();
    EXPECT_EQ(shown(u"browserState"_s, "kind"), u"info"_s);
}

TEST_F(BrowserSetupTest, EachKindOfBrowserIsToldWhatItNeeds) {
    stage.show({PopoverScreen::browsers, {}, u"org.mozilla.firefox"_s});
    EXPECT_TRUE(stage.hasItem(u"signedNote"_s));
    EXPECT_EQ(shown(u"extensionFolder"_s, "value"),
              u"/usr/share/skipnest/extension/manifest.json"_s);
    setup().copy(setup().extension());
    EXPECT_EQ(QGuiApplication::clipboard()->text(), setup().extension());
    setup().choose(u"org.mozilla.firefox 2"_s);
    stage.settle();
    EXPECT_EQ(shown(u"browserState"_s, "kind"), u"warning"_s) << "in a sandbox";
    EXPECT_FALSE(stage.hasItem(u"extensionFolder"_s));
    stage.desk().browserExtensions().refuseInstall({platform::Failure::Kind::system, u"no room"_s});
    setup().open(u"org.chromium.Chromium"_s);
    stage.settle();
    EXPECT_EQ(shown(u"browserState"_s, "kind"), u"danger"_s);
    EXPECT_TRUE(shown(u"browserState"_s, "text").contains(u"no room"));
    setup().open(u"com.example.unknown"_s);
    EXPECT_EQ(setup().chosen(), QString()) << "the list";
}

} // namespace
} // namespace skipnest::ui
