// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <sys/types.h>

#include <vector>

namespace skipnest::bench {

// What the kernel knows about a process.
struct ThreadSwitches {
    QString thread; // "name (tid)"
    qint64 voluntary = 0;
    qint64 involuntary = 0;
};

[[nodiscard]] std::vector<ThreadSwitches> contextSwitches(pid_t pid);
// A field of smaps_rollup in KiB: "Rss", "Pss", "Private_Dirty" …
[[nodiscard]] qint64 memory(pid_t pid, const char* field);
[[nodiscard]] int openDescriptors(pid_t pid);

} // namespace skipnest::bench
