// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QStringList>

namespace skipnest {

struct AgentOptions {
    enum class Popover { open, keepClosed };
    Popover popover = Popover::open; // what a start in the middle of a session shows
    QString recordFile;              // empty: no trace is written
};

// Where the program meets its operating system: one file of these a system. Both return the
// process's exit status. `argv` is not changed.
int runAgent(int argc, char** argv, const AgentOptions& options);
int runSubcommand(int argc, char** argv, const QStringList& words);

} // namespace skipnest
