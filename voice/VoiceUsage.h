// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/AppInfo.h"
#include "platform/Diagnostics.h"
#include "platform/Executor.h"
#include "platform/Files.h"
#include "platform/Scheduler.h"
#include "platform/WallClock.h"
#include "voice/UseHistory.h"

#include <cstdint>
#include <memory>

namespace skipnest::voice {

// Remembers in "voice.json", beside the statistics, which targets the person says how often: what
// is said often is understood sooner. On the main thread; only the writing of the file leaves it.
//
// A file that cannot be read whole is kept as "voice.json.corrupt-<time>" before it is first
// written over; where that cannot be done, nothing is written.
class VoiceUsage {
public:
    // A file above this is not looked into.
    static constexpr std::int64_t largestFile = 4LL << 20;

    VoiceUsage(platform::Files& files, platform::Scheduler& scheduler, platform::Executor& executor,
               const platform::WallClock& clock, platform::Diagnostics& diagnostics,
               const platform::AppInfo& app);
    // Writes what waits to be written.
    ~VoiceUsage();
    VoiceUsage(const VoiceUsage&) = delete;
    VoiceUsage& operator=(const VoiceUsage&) = delete;

    // A jump by voice to the target of this title. The file is written 2 s after the last one.
    void record(const QString& title);
    // Writes what waits to be written, here and now.
    void flush();

    [[nodiscard]] const UseHistory& history() const { return history_; }
    [[nodiscard]] const UseCounts& counts() const { return counts_; }

private:
    class File;

    void load();
    void write();
    void report(std::uint64_t edition, const platform::Outcome& written);

    platform::Scheduler& scheduler_;
    platform::Executor& executor_;
    const platform::WallClock& clock_;
    platform::Diagnostics& diagnostics_;
    std::shared_ptr<File> file_;
    UseHistory history_;
    UseCounts counts_;
    platform::Timer save_;
    std::uint64_t unsaved_ = 0; // the edition that the file does not hold yet; 0: it holds all
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::voice
