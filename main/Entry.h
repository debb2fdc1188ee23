// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace skipnest {

// The program is two executables. `skipnest` is the command line: it loads no user interface, so
// that `skipnest jump NAME` from a desktop's own key binding costs 4 ms to start and not 15.
// Whatever needs the desktop itself goes on as `skipnest-agent`, in the same process, with the same
// arguments.

struct AgentOptions {
    enum class Popover { open, keepClosed };
    Popover popover = Popover::open; // what a start in the middle of a session shows
    QString recordFile;              // empty: no trace is written
    QString addTarget;               // the popover opens on a shortcut for this path or URL
};

// The arguments behind the program's name.
[[nodiscard]] QStringList argumentWords(int argc, char** argv);
// Whether they start the agent: none, "run", or its options alone.
[[nodiscard]] bool startsAgent(const QStringList& words);
// Its options; nothing where one is wrong, which is said on standard error.
[[nodiscard]] std::optional<AgentOptions> agentOptions(QStringList words);

// Where the program meets its operating system, one set of files a system. Exit statuses are
// returned, `argv` is not changed.
int runFront(int argc, char** argv);
int runAgent(int argc, char** argv, const AgentOptions& options);
int runSubcommandOfAgent(int argc, char** argv, const QStringList& words);

} // namespace skipnest
