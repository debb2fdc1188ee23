// SPDX-License-Identifier: Apache-2.0
#include "tests/ui/UiStage.h"

#include "ui/PopoverModel.h"

#include <QQuickItem>

#include <gmock/gmock.h>

namespace skipnest::ui {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

// The run before this one ended by a crash.
class CrashReport : public testing::Test {
protected:
    void SetUp() override {
        desk().http().setAnswer(u"/crash.php"_s, platform::HttpReply{200, {}});
        desk().files().put(record(),
                           R"({"type":"signal","name":"SIGSEGV","stack":"skipnest+0x12ab"})");
        desk().files().put(desk().appInfo().supportFolder + u"/config.json"_s,
                           R"({"version":1,"shortcuts":[],"launchAtLogin":false,)"
                           R"("menuBarIconName":"nest","crashReports":true})");
        stage_.launch();
        stage_.show({});
    }
    sim::SimDesktop& desk() { return stage_.desk(); }
    QString record() { return desk().appInfo().supportFolder + u"/pending-crash.json"_s; }
    bool isRecordThere() { return desk().ports().files.kind(record()) == platform::FileKind::file; }
    bool isSent() {
        return QString::fromStdString(testing::PrintToString(desk().journal().calls()))
            .contains(u"/crash.php"_s);
    }
    PopoverModel& popover() { return stage_.panels().popoverModel(); }

    test::UiStage stage_;
};

TEST_F(CrashReport, isSentOnlyAfterAllOfItWasShown) {
    EXPECT_EQ(popover().list()->banner()->text(), u"Skipnest quit unexpectedly last time");
    stage_.click(stage_.item(u"bannerAction0"_s));
    ASSERT_EQ(popover().screen(), u"crash");
    const QString shown = stage_.item(u"crashPreview"_s).property("text").toString();
    EXPECT_TRUE(shown.contains(u"SIGSEGV"_s) && shown.contains(u"skipnest+0x12ab"_s))
        << qPrintable(shown);
    EXPECT_FALSE(isSent());

    stage_.press(Qt::Key_Return); // the button that sends has the keyboard
    desk().advance(1s);
    stage_.settle();
    EXPECT_TRUE(isSent());
    EXPECT_FALSE(isRecordThere());
    EXPECT_EQ(popover().screen(), u"list");
    EXPECT_FALSE(stage_.hasItem(u"banner"_s));
}

TEST_F(CrashReport, thatIsNotWantedIsGoneAndNothingWasSent) {
    popover().open(u"crash"_s);
    stage_.settle();
    stage_.press(Qt::Key_Escape); // later
    EXPECT_TRUE(stage_.hasItem(u"banner"_s));
    EXPECT_TRUE(isRecordThere());
    popover().open(u"crash"_s);
    stage_.settle();
    stage_.click(stage_.item(u"discardCrash"_s));
    EXPECT_EQ(popover().screen(), u"list");
    EXPECT_FALSE(stage_.hasItem(u"banner"_s));
    desk().advance(1s);
    EXPECT_FALSE(isSent());
    EXPECT_FALSE(isRecordThere());
}

} // namespace
} // namespace skipnest::ui
