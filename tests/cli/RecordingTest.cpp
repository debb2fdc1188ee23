// SPDX-License-Identifier: Apache-2.0
#include "cli/TraceRecorder.h"

#include "cli/TraceReader.h"
#include "platform/sim/SimDesktop.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace skipnest::cli {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::Not;

// What a recording of a simulated session holds.
class RecordingTest : public testing::Test {
protected:
    RecordingTest() {
        for (const char* name : {"Notes", "Mail"})
            desk.installApp(
                {.name = QString::fromLatin1(name),
                 .bundleIdentifier =
                     QStringLiteral("com.example.%1").arg(QString::fromLatin1(name)),
                 .path = QStringLiteral("/Applications/%1.app").arg(QString::fromLatin1(name)),
                 .pid = {},
                 .running = sim::Running::yes,
                 .windows = {{QStringLiteral("secret title")}}});
        desk.bringToFront(QStringLiteral("Mail"));
        agent.launch();
        agent.viewModel().addShortcut(QStringLiteral("/Applications/Notes.app"),
                                      model::KeyCombo{38, {6}}, std::nullopt);
    }
    std::string recorded() const {
        QFile file(path);
        EXPECT_TRUE(file.open(QFile::ReadOnly));
        return file.readAll().toStdString();
    }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("trace.jsonl"));
    sim::SimDesktop desk;
    app::AppDelegate agent{desk.ports()};
};

TEST_F(RecordingTest, readsBackAndKeepsTypedKeysToItself) {
    {
        auto recorder = TraceRecorder::open(path, agent);
        ASSERT_TRUE(recorder);
        desk.advance(1s);
        desk.changeModifiers(59, {platform::EventFlags::control});
        desk.pressKey();
        desk.advance(500ms);
        desk.pressHotkey({38, 0x1800});
        desk.advance(1s);
    }
    const std::string trace = recorded();
    EXPECT_THAT(trace, HasSubstr(R"("do":"hotkey","key":"ctrl+opt+j")"));
    EXPECT_THAT(trace, HasSubstr("\"code\":65535"));
    EXPECT_THAT(trace, HasSubstr(R"({"app":"Notes","at":1.5,"do":"front"})"));
    EXPECT_THAT(trace, Not(HasSubstr("secret title")));

    QFile file(path);
    ASSERT_TRUE(file.open(QFile::ReadOnly));
    trace::TraceReader reader(file);
    int events = 0;
    int keys = 0;
    while (true) {
        const auto event = reader.next();
        ASSERT_TRUE(event) << event.failure().detail.toStdString();
        if (!*event)
            break;
        ++events;
        keys += std::holds_alternative<trace::PressKey>((*event)->what) ? 1 : 0;
    }
    EXPECT_GT(events, 8);
    EXPECT_EQ(keys, 1); // the hotkey's own key is told once, as the hotkey
    EXPECT_EQ(QFile::permissions(path) & (QFile::ReadGroup | QFile::ReadOther),
              QFile::Permissions());
}

TEST_F(RecordingTest, neverWritesOverAFile) {
    QFile file(path);
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("mine");
    file.close();
    EXPECT_FALSE(TraceRecorder::open(path, agent));
    EXPECT_EQ(recorded(), "mine");
}

} // namespace
} // namespace skipnest::cli
