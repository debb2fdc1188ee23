// SPDX-License-Identifier: Apache-2.0
#include "platform/macos/MacWorkspace.h"
#include "platform/macos/MacApplicationControl.h"

#include "tests/macos/ManualScheduler.h"

#include <gmock/gmock.h>

namespace skipnest::macos {
namespace {

using namespace Qt::StringLiterals;
using platform::Failure;
using platform::Outcome;
using testing::SizeIs;

class FakeAppKit final : public WorkspaceBridge {
public:
    std::vector<ApplicationRecord> running() const override { return records; }
    std::optional<ApplicationRecord> frontmost() const override { return front; }
    std::string bundleIdentifier(const std::string&) const override { return "com.apple.Notes"; }
    std::string defaultApplication(const std::string&) const override { return opener; }
    void openApplication(const std::string& path, Opened opened) override {
        requests.push_back("application " + path);
        answer = std::move(opened);
    }
    void openAddress(const std::string& address, Opened opened) override {
        openFile(address, std::move(opened));
    }
    void openFile(const std::string& path, Opened opened) override {
        requests.push_back("file " + path);
        answer = std::move(opened);
    }
    void observeActivations(Activated told) override { activated = std::move(told); }
    void observeTerminations(std::function<void()>) override {}

    std::vector<ApplicationRecord> records;
    std::optional<ApplicationRecord> front;
    std::string opener;
    std::vector<std::string> requests;
    Opened answer;
    Activated activated;
};

const OpenAnswer taken = {true, {}, 0, {}};

struct MacWorkspaceTest : testing::Test {
    FakeAppKit appKit;
    ManualScheduler scheduler;
    MacWorkspace workspace{appKit, scheduler};
    std::vector<Outcome> outcomes;
    platform::Workspace::OpenCompletion completion = [this](const Outcome& outcome) {
        outcomes.push_back(outcome);
    };
};

TEST_F(MacWorkspaceTest, APathIsAnApplicationByItsNameAlone) {
    struct Row {
        QString path;
        bool isApplication;
        QString name;
    };
    for (const Row& row :
         {Row{u"/Applications/Notes.app"_s, true, u"Notes"_s},
          Row{u"/Applications/Notes.app/"_s, true, u"Notes"_s},
          Row{u"/Applications/Ärger & Co.app"_s, true, u"Ärger & Co"_s},
          Row{u"/Applications/Notes.app/Contents"_s, false, u"Contents"_s},
          Row{u"/Users/me/.app"_s, false, u".app"_s},
          Row{u"/Users/me/a.app.txt"_s, false, u"a.app.txt"_s},
          Row{u"/Users/me/notesapp"_s, false, u"notesapp"_s}, Row{u"/"_s, false, u""_s}}) {
        EXPECT_EQ(workspace.isApplication(row.path), row.isApplication) << row.path.toStdString();
        EXPECT_EQ(workspace.displayName(row.path), row.name) << row.path.toStdString();
    }
}

TEST_F(MacWorkspaceTest, WhatHasEndedIsNotListed) {
    appKit.records = {{100, "com.apple.Notes", "/Applications/Notes.app", "Notizen"},
                      {-1, "", "", ""}};
    appKit.front = ApplicationRecord{-1, "", "", ""};
    const auto running = workspace.runningApplications();
    ASSERT_THAT(running, SizeIs(1));
    EXPECT_EQ(running[0],
              (platform::RunningApplication{
                  {100}, u"com.apple.Notes"_s, u"/Applications/Notes.app"_s, u"Notizen"_s}));
    EXPECT_FALSE(workspace.frontmostApplication());
    int told = 0;
    const auto observation = workspace.observeActivations([&told](const auto&) { ++told; });
    appKit.activated(appKit.records[1]);
    appKit.activated(appKit.records[0]);
    EXPECT_EQ(told, 1);
}

TEST_F(MacWorkspaceTest, AnErrorOfTheSystemIsToldByWhatItMeans) {
    struct Row {
        OpenAnswer answer;
        Failure::Kind kind;
    };
    for (const Row& row :
         {Row{{false, "NSCocoaErrorDomain", 260, "gone"}, Failure::Kind::notFound},
          Row{{false, "NSOSStatusErrorDomain", -10814, "no app"}, Failure::Kind::notFound},
          Row{{false, "NSCocoaErrorDomain", 3072, "cancelled"}, Failure::Kind::refused},
          Row{{false, "NSOSStatusErrorDomain", 260, "other domain"}, Failure::Kind::system}}) {
        workspace.openFile(u"/Users/me/Brief.txt"_s, completion);
        appKit.answer(row.answer);
        ASSERT_FALSE(outcomes.back().ok());
        EXPECT_EQ(outcomes.back().failure().kind, row.kind);
        EXPECT_TRUE(outcomes.back().failure().detail.contains(u"/Users/me/Brief.txt"_s));
    }
    workspace.openApplication(u"/Applications/Notes.app"_s, completion);
    appKit.answer(taken);
    EXPECT_TRUE(outcomes.back().ok());
    EXPECT_EQ(appKit.requests.back(), "application /Applications/Notes.app");
}

TEST_F(MacWorkspaceTest, APathThatCouldMeanAnotherFileNeverReachesTheSystem) {
    appKit.opener = "/Applications/TextEdit.app";
    const QString endsEarly = u"/Users/me/a"_s + QChar(u'\0') + u"b"_s;
    for (const QString& path : {QString(), u"Notes.app"_s, endsEarly}) {
        workspace.openApplication(path, completion);
        workspace.openFile(path, completion);
        EXPECT_FALSE(workspace.defaultApplication(path));
        EXPECT_TRUE(workspace.bundleIdentifier(path).isEmpty());
    }
    EXPECT_THAT(outcomes, SizeIs(0)) << "answered from inside the request";
    scheduler.runPosted();
    ASSERT_THAT(outcomes, SizeIs(6));
    EXPECT_EQ(outcomes[0].failure().kind, Failure::Kind::malformed);
    EXPECT_THAT(appKit.requests, SizeIs(0));
    EXPECT_EQ(workspace.defaultApplication(u"/a.txt"_s), u"/Applications/TextEdit.app"_s);
    appKit.opener.clear();
    EXPECT_FALSE(workspace.defaultApplication(u"/a.txt"_s));
}

TEST_F(MacWorkspaceTest, AnAnswerAfterTheBackendIsGoneIsDropped) {
    auto shortLived = std::make_unique<MacWorkspace>(appKit, scheduler);
    shortLived->openFile(u"/Users/me/Brief.txt"_s, completion);
    shortLived->openFile(u"relative"_s, completion);
    shortLived.reset();
    appKit.answer(taken);
    scheduler.runPosted();
    EXPECT_THAT(outcomes, SizeIs(0));
}

class FakeApplications final : public ApplicationBridge {
public:
    std::optional<ProcessState> state(std::int64_t pid) const override {
        return pid == 100 ? std::optional(ProcessState{.active = true, .hidden = false})
                          : std::nullopt;
    }
    RequestAnswer activate(std::int64_t pid, Activation) override { return answer(pid); }
    RequestAnswer hide(std::int64_t pid) override { return answer(pid); }
    RequestAnswer terminate(std::int64_t pid) override { return answer(pid); }
    RequestAnswer forceTerminate(std::int64_t) override { return RequestAnswer::taken; }

private:
    static RequestAnswer answer(std::int64_t pid) {
        return pid == 100 ? RequestAnswer::refused : RequestAnswer::notRunning;
    }
};

TEST(MacApplicationControlTest, RefusedAndEndedAreToldApart) {
    FakeApplications appKit;
    MacApplicationControl control(appKit);
    const platform::ProcessIdentifier refusing{100};
    // 2^32 + 100 would become process 100 if it were cut down to the system's 32 bits.
    const platform::ProcessIdentifier ended{(std::int64_t{1} << 32) + 100};
    for (const auto& [pid, kind] :
         {std::pair(refusing, Failure::Kind::refused), std::pair(ended, Failure::Kind::notFound)}) {
        const auto allWindows = platform::ActivationOption::allWindows;
        EXPECT_EQ(control.activate(pid, allWindows).failure().kind, kind);
        EXPECT_EQ(control.hide(pid).failure().kind, kind);
        EXPECT_EQ(control.terminate(pid, platform::Termination::polite).failure().kind, kind);
    }
    EXPECT_TRUE(control.terminate(refusing, platform::Termination::forced).ok());
    EXPECT_TRUE(control.state(refusing).active);
    EXPECT_TRUE(control.state(ended).terminated);
    EXPECT_FALSE(control.state(ended).active);
}

} // namespace
} // namespace skipnest::macos
