// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Diagnostics.h"
#include "platform/Scheduler.h"
#include "platform/WallClock.h"

#include <QDateTime>
#include <QFile>

#include <memory>
#include <vector>

namespace skipnest::platform {

// The debug log: "Skipnest-debug.log" in a folder of the user's, one line an entry: local ISO time
// with milliseconds, a blank, the text with control characters escaped. At 5 MB the file becomes
// "Skipnest-debug.log.old" (one is kept) and a new one begins. 0600 in a 0700 folder.
//
// Lines are formatted and written when the event at hand has been dealt with, so that a key press
// waits neither for a disk nor for the time zone's files. A log that cannot be written is silent:
// there is nobody left to tell.
class DebugLogFile final : public Diagnostics {
public:
    DebugLogFile(const QString& folder, Scheduler& scheduler, const WallClock& clock);
    ~DebugLogFile() override;

    void log(const QString& line) override;
    void print(const QString& line) override;

    // Writes what has been gathered so far.
    void flush();

private:
    bool open();
    void rotate();

    Scheduler& scheduler_;
    const WallClock& clock_;
    QFile file_;
    struct Entry {
        QDateTime utc;
        QString text;
    };
    std::vector<Entry> pending_;
    bool flushPosted_ = false;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

// The text with every control character (line breaks and the C1 range too) as \n, \r, \t or \u00xx,
// so that one entry is one line whatever a window is called.
[[nodiscard]] QString escapedForLog(const QString& text);

} // namespace skipnest::platform
