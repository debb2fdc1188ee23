// SPDX-License-Identifier: Apache-2.0
#include "platform/macos/UnavailablePorts.h"

#include "tests/macos/ManualScheduler.h"

#include <gtest/gtest.h>

namespace skipnest::macos {
namespace {

using namespace Qt::StringLiterals;
using platform::Failure;

class Lines final : public platform::Diagnostics {
public:
    void log(const QString& line) override { logged.push_back(line); }
    void print(const QString&) override {}

    QStringList logged;
};

TEST(UnavailablePortsTest, AnAlertNobodySeesIsLoggedAndAnsweredAsClosed) {
    ManualScheduler scheduler;
    Lines lines;
    UnavailableAlerts alerts(scheduler, lines);
    int answer = -1;
    alerts.show({u"File Not Found"_s, u"It is gone."_s, {u"Search"_s, u"OK"_s}},
                [&answer](int button) { answer = button; });
    EXPECT_EQ(answer, -1) << "answered from inside the request";
    scheduler.runPosted();
    EXPECT_EQ(answer, 1);
    ASSERT_EQ(lines.logged.size(), 1);
    EXPECT_TRUE(lines.logged[0].contains(u"It is gone."_s));
}

TEST(UnavailablePortsTest, WhatIsNotWrittenSaysSo) {
    UnavailableFiles files;
    UnavailableBookmarks bookmarks;
    UnavailableInstanceLock instances;
    UnavailableScriptRunner scripts;
    for (const Failure& failure :
         {files.read(u"/a"_s, 1).failure(), files.write(u"/a"_s, {}).failure(),
          bookmarks.create(u"/a"_s).failure(), instances.acquire().failure()}) {
        EXPECT_EQ(failure.kind, Failure::Kind::unavailable);
        EXPECT_TRUE(failure.detail.contains(u"macOS"_s));
    }
    const platform::Availability answer = scripts.availability();
    EXPECT_EQ(answer.state, platform::Availability::State::unavailable);
    EXPECT_FALSE(answer.reason.isEmpty() || answer.remedy.isEmpty());
    const platform::ScriptAnswer run = scripts.run({}, platform::Duration(1));
    ASSERT_TRUE(std::holds_alternative<platform::ScriptError>(run));
    EXPECT_EQ(std::get<platform::ScriptError>(run).description, answer.reason);
}

} // namespace
} // namespace skipnest::macos
