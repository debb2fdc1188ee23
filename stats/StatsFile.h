// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Files.h"
#include "platform/Result.h"
#include "stats/StatsStore.h"

#include <QDateTime>
#include <QString>

#include <mutex>
#include <vector>

namespace skipnest::stats {

// The file "stats.json", and what it is to hold: a second store beside the one that counts, told of
// changes only. A copy of the whole at each save would cost a key press milliseconds, when the
// counting store parts with a copy that is still being written.
//
// Only load() belongs to the main thread. Two saves never overlap, and each writes all that was put
// before it: an older content never replaces a newer one.
class StatsFile {
public:
    StatsFile(platform::Files& files, QString path);

    struct Loaded {
        StatsStore store;
        QString problem; // one line for the log, or empty
    };
    // Before all else. No file is an empty store, and so is one that does not decode.
    [[nodiscard]] Loaded load();

    // Days and targets that have another count than before (0 takes the entry out), all the other
    // fields as they are now; `unknown` is not looked at.
    void put(StatsStore changed);

    struct Saved {
        platform::Outcome outcome = platform::Done{};
        QString movedTo; // name of the file that keeps what could not be taken over, or empty
    };
    // Writes what was put, if anything was. A failure is made up for by the next save. What was
    // found wrong by load() is kept as "stats.json.corrupt-<time>" before; where that cannot be
    // done, nothing is written. `local` is the time now.
    [[nodiscard]] Saved save(const QDateTime& local);
    // From now on nothing touches the files.
    void close();

private:
    platform::Result<QString> keepBeside(const QDateTime& local);
    void takeInbox();

    platform::Files& files_;
    const QString path_;

    std::mutex inboxLock_;
    std::vector<StatsStore> inbox_;

    std::mutex writing_; // guards all below
    StatsStore content_;
    bool isWrong_ = false; // the file has parts that content_ has not
    bool isDirty_ = false; // content_ has parts that the file has not
    bool isClosed_ = false;
};

} // namespace skipnest::stats
