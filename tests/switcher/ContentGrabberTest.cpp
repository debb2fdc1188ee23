// SPDX-License-Identifier: Apache-2.0
#include "switcher/ContentGrabber.h"

#include "platform/sim/SimDesktop.h"

#include <gmock/gmock.h>

#include <limits>

namespace skipnest::switcher {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using platform::RunningApplication;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(PreviewSize, isTruncatedAndHasALeast) {
    struct Row {
        QSizeF window;
        QSize preview;
    };
    const Row rows[] = {
        {{400, 300}, {240, 150}},   {{2000, 1000}, {700, 350}},
        {{687, 431}, {240, 150}},   // 240.45, 150.85
        {{688.6, 432}, {241, 151}}, // 241.01, 151.2
        {{3000, 100}, {1050, 150}}, {{-5, std::numeric_limits<double>::infinity()}, {240, 4096}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(previewSize(row.window), row.preview) << row.window.width();
}

class ContentGrabberTest : public testing::Test {
protected:
    ContentGrabberTest() {
        install({{.title = u"A"_s, .frame = QRectF(0, 0, 2000, 1000)},
                 {.title = u"B"_s, .minimized = true, .frame = QRectF(5, 6, 400, 300)}});
        desk.installApp({.name = u"Other"_s,
                         .path = u"/Other.app"_s,
                         .pid = {102},
                         .windows = {{.title = u"C"_s}}});
    }
    void install(const std::vector<sim::SimWindow>& windows) {
        desk.installApp(
            {.name = u"Notes"_s, .path = u"/Notes.app"_s, .pid = {101}, .windows = windows});
    }
    void start() {
        grabber.start(notes, [this](const ContentGrabber::Shot& shot) {
            shots.push_back(shot);
            if (stopAtFirst)
                grabber.stop();
        });
    }
    std::vector<std::string> titles() const {
        std::vector<std::string> told;
        for (const auto& shot : shots)
            told.push_back(shot.title.toStdString());
        return told;
    }

    sim::SimDesktop desk;
    const RunningApplication notes{{101}, {}, u"/Notes.app"_s, u"Notes"_s};
    ContentGrabber grabber{desk.ports()};
    std::vector<ContentGrabber::Shot> shots;
    bool stopAtFirst = false;
};

TEST_F(ContentGrabberTest, takesOnePictureOfEachWindowOfTheApplication) {
    start();
    EXPECT_THAT(shots, IsEmpty()); // never from inside
    desk.advance(0s);
    EXPECT_THAT(desk.journal().calls(), ElementsAre("capture height=350 title=A width=700",
                                                    "capture height=150 title=B width=240"));
    ASSERT_THAT(titles(), ElementsAre("A", "B"));
    EXPECT_EQ(shots[0].image.size(), QSize(700, 350));
    EXPECT_EQ(shots[0].image.pixel(0, 0), sim::SimScreenCapture::colourOf(shots[0].identifier));
    EXPECT_NE(shots[0].image.pixel(0, 0), shots[1].image.pixel(0, 0));
    EXPECT_TRUE(shots[0].isOnScreen);
    EXPECT_FALSE(shots[1].isOnScreen);
    EXPECT_EQ(shots[1].frame, QRectF(5, 6, 400, 300));
    // By this a shot is told from one of a window with the same title.
    const auto element = desk.ports().accessibility.application({101});
    const auto windows = std::get<std::vector<platform::AccessibilityElement>>(
        *desk.ports().accessibility.attribute(element, u"AXWindows"_s));
    EXPECT_EQ(std::get<QString>(*desk.ports().accessibility.attribute(windows[0], u"AXWindowID"_s)),
              shots[0].identifier);
}

TEST_F(ContentGrabberTest, aWindowThatClosesMeanwhileHasNoShot) {
    desk.screenCapture().setDelay(100ms);
    start();
    desk.advance(150ms); // listed, and both pictures are being taken
    install({{.title = u"B"_s}});
    desk.advance(1s);
    EXPECT_THAT(titles(), ElementsAre("B"));
}

TEST_F(ContentGrabberTest, tellsNothingAfterAStopAndANewStartBeginsAfresh) {
    desk.screenCapture().setDelay(100ms);
    for (const auto stopAfter : {50ms, 150ms}) { // while listing, while capturing
        start();
        desk.advance(stopAfter);
        grabber.stop();
        desk.advance(1s);
        EXPECT_THAT(shots, IsEmpty());
        EXPECT_THAT(desk.runningTimers(), IsEmpty());
    }
    start();
    desk.advance(150ms);
    start();
    desk.advance(1s);
    EXPECT_THAT(titles(), ElementsAre("A", "B"));

    shots.clear();
    stopAtFirst = true;
    start();
    desk.advance(1s);
    EXPECT_THAT(titles(), ElementsAre("A"));
}

TEST_F(ContentGrabberTest, saysWhyThereAreNoPictures) {
    sim::Trust trust;
    trust.screenRecording = false;
    desk.setTrust(trust);
    start();
    desk.advance(1s);
    EXPECT_THAT(desk.journal().logLines(),
                ElementsAre("switcher: Screen Recording not granted — AX windows + icons only"));
    EXPECT_THAT(desk.journal().calls(), ElementsAre("requestScreenCapture"));

    desk.setTrust({});
    desk.journal().clear();
    desk.screenCapture().refuseListing(
        platform::Failure{platform::Failure::Kind::refused, u"no"_s});
    start();
    desk.advance(1s);
    EXPECT_THAT(desk.journal().logLines(), ElementsAre("switcher: SCShareableContent failed"));

    desk.journal().clear();
    desk.screenCapture().setAvailability({platform::Availability::State::unavailable, {}, {}});
    start();
    desk.advance(1s);
    EXPECT_TRUE(desk.journal().entries().empty());
    EXPECT_THAT(shots, IsEmpty());
}

} // namespace
} // namespace skipnest::switcher
