// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/SessionKind.h"
#include "platform/QtScheduler.h"
#include "platform/linux/HeadlessPorts.h"
#include "platform/linux/LinuxAppInfo.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <map>

namespace skipnest::linuxdesktop {
namespace {

using namespace Qt::StringLiterals;
using Variables = std::map<QString, QString>;

QProcessEnvironment environmentOf(const Variables& variables) {
    QProcessEnvironment environment;
    for (const auto& [name, value] : variables)
        environment.insert(name, value);
    return environment;
}

struct SessionRow {
    const char* name;
    Variables variables;
    bool x11Answers;
    QString waylandAnswersAt;
    bool plugin;
    Session session;
};

class SessionKindTest : public testing::TestWithParam<SessionRow> {};

TEST_P(SessionKindTest, findsTheSessionThatIsReallyThere) {
    const SessionRow& row = GetParam();
    const SessionProbes probes{[&row](const QString&) { return row.x11Answers; },
                               [&row](const QString& path) { return path == row.waylandAnswersAt; },
                               [&row] { return row.plugin; }};
    EXPECT_EQ(findSession(environmentOf(row.variables), probes), row.session);
}

const QString display = QStringLiteral("DISPLAY");
const QString wayland = QStringLiteral("WAYLAND_DISPLAY");
const QString type = QStringLiteral("XDG_SESSION_TYPE");
const QString runtime = QStringLiteral("XDG_RUNTIME_DIR");
const QString one = QStringLiteral("/run/me/wayland-1");
const QString zero = QStringLiteral("/run/me/wayland-0");
const std::pair<const QString, QString> inRun{runtime, QStringLiteral("/run/me")};
const Session onX11{SessionKind::x11, "xcb"};
const Session onWayland{SessionKind::wayland, "wayland"};
const Session onWaylandUnseen{SessionKind::wayland, "offscreen"};
const Session nowhere{SessionKind::none, "offscreen"};

INSTANTIATE_TEST_SUITE_P(
    Rows, SessionKindTest,
    testing::Values(
        SessionRow{"plain_x11", {{display, u":0"_s}}, true, {}, true, onX11},
        SessionRow{"wayland_with_xwayland",
                   {{display, u":0"_s}, {wayland, u"wayland-1"_s}, inRun},
                   true,
                   one,
                   true,
                   onWayland},
        SessionRow{"wayland_by_absolute_path", {{wayland, one}}, false, one, true, onWayland},
        SessionRow{"wayland_without_qt_plugin",
                   {{wayland, u"wayland-1"_s}, inRun},
                   true,
                   one,
                   false,
                   onWaylandUnseen},
        SessionRow{"session_type_alone_means_the_default_socket",
                   {{type, u"wayland"_s}, inRun},
                   false,
                   zero,
                   true,
                   onWayland},
        SessionRow{"sandbox_that_shows_only_xwayland",
                   {{type, u"wayland"_s}, {display, u":0"_s}, inRun},
                   true,
                   {},
                   true,
                   onWaylandUnseen},
        SessionRow{"left_over_wayland_variable_in_an_x11_session",
                   {{wayland, u"wayland-1"_s}, {display, u":0"_s}, {type, u"x11"_s}, inRun},
                   true,
                   {},
                   true,
                   onX11},
        SessionRow{"empty_variables_are_none",
                   {{wayland, QString()}, {display, QString()}, inRun},
                   true,
                   zero,
                   true,
                   nowhere},
        SessionRow{"display_that_does_not_answer", {{display, u":9"_s}}, false, {}, true, nowhere},
        SessionRow{"wayland_without_runtime_folder",
                   {{wayland, u"wayland-1"_s}},
                   false,
                   one,
                   true,
                   nowhere},
        SessionRow{"empty", {}, true, zero, true, nowhere}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(SessionProbesTest, nothingListeningAnswersNobody) {
    const QTemporaryDir folder;
    const SessionProbes probes = SessionProbes::real();
    EXPECT_FALSE(probes.waylandAnswers(folder.filePath(u"wayland-0"_s)));
    EXPECT_FALSE(probes.waylandAnswers(QString(500, u'x')));
    EXPECT_FALSE(probes.x11Answers(u":64999"_s));
}

TEST(HeadlessPortsTest, everyRequestIsRefusedAndTheReasonFitsTheSession) {
    for (const SessionKind session : {SessionKind::wayland, SessionKind::none}) {
        HeadlessHotkeys hotkeys(session);
        const auto answers = hotkeys.registerHotkeys({{{1}, 38, 0x100}, {{2}, 40, 0x100}});
        ASSERT_EQ(answers.size(), 2U);
        for (const auto& answer : answers) {
            EXPECT_NE(answer.status, 0);
            EXPECT_FALSE(answer.grab);
        }
        platform::QtScheduler clock;
        ExtensionTabs tabs(clock, QString());
        HeadlessScripts scripts(session, tabs);
        EXPECT_TRUE(std::holds_alternative<platform::ScriptError>(scripts.run({}, {})));
        EXPECT_EQ(HeadlessKeyEvents(session).post({}).failure().kind,
                  platform::Failure::Kind::unavailable);
        const auto availability = hotkeys.availability();
        EXPECT_EQ(availability.state, platform::Availability::State::unavailable);
        EXPECT_EQ(availability.reason.contains(u"Only the compositor"_s, Qt::CaseInsensitive),
                  session == SessionKind::wayland);
        EXPECT_FALSE(availability.remedy.isEmpty());
    }
}

TEST(LinuxAppInfoTest, foldersFollowTheBaseDirectoriesAndIgnoreUnusableValues) {
    const QTemporaryDir own;
    struct Row {
        Variables variables;
        QString support, log, runtimeFolder;
    };
    const std::vector<Row> rows{
        {{{u"HOME"_s, u"/home/me/"_s}},
         u"/home/me/.config/Skipnest"_s,
         u"/home/me/.local/state/Skipnest"_s,
         u"/home/me/.local/state/Skipnest"_s},
        {{{u"HOME"_s, u"/home/me"_s},
          {u"XDG_CONFIG_HOME"_s, u"relative"_s},
          {u"XDG_STATE_HOME"_s, QString()},
          {runtime, own.path()}},
         u"/home/me/.config/Skipnest"_s,
         u"/home/me/.local/state/Skipnest"_s,
         own.path() + u"/Skipnest"_s},
        {{{u"HOME"_s, u"/"_s},
          {u"XDG_CONFIG_HOME"_s, u"/c//d/"_s},
          {u"XDG_STATE_HOME"_s, u"/s"_s},
          {runtime, u"/none/such"_s}},
         u"/c/d/Skipnest"_s,
         u"/s/Skipnest"_s,
         u"/s/Skipnest"_s},
    };
    for (const Row& row : rows) {
        const platform::AppInfo app = linuxAppInfo(environmentOf(row.variables));
        EXPECT_EQ(app.supportFolder, row.support);
        EXPECT_EQ(app.logFolder, row.log);
        EXPECT_EQ(app.runtimeFolder, row.runtimeFolder);
        EXPECT_TRUE(app.bundlePath.endsWith(u"/linux_services_test"_s));
    }
    EXPECT_TRUE(linuxAppInfo({}).home.startsWith(u'/'));
}

} // namespace
} // namespace skipnest::linuxdesktop
