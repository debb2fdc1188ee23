// SPDX-License-Identifier: Apache-2.0
#include "cli/CommandLine.h"
#include "main/Entry.h"

#include <cstdio>
#include <optional>

namespace {

using skipnest::AgentOptions;

// The options behind "run" (or behind nothing); no value where one is wrong, which is said.
std::optional<AgentOptions> agentOptions(const QStringList& words) {
    AgentOptions options;
    for (qsizetype i = 0; i < words.size(); ++i) {
        if (words[i] == u"--background") {
            options.popover = AgentOptions::Popover::keepClosed;
        } else if (words[i] == u"--record" && i + 1 < words.size()) {
            options.recordFile = words[++i];
        } else {
            std::fprintf(stderr,
                         "skipnest: run does not understand \"%s\"\n"
                         "usage: skipnest [run [--background] [--record FILE]]\n",
                         qUtf8Printable(words[i]));
            return std::nullopt;
        }
    }
    return options;
}

bool startsAgent(const QStringList& words) {
    return words.isEmpty() || words.first() == u"run" || words.first() == u"--background" ||
           words.first() == u"--record";
}

} // namespace

int main(int argc, char** argv) {
    QStringList words;
    for (int i = 1; i < argc; ++i)
        words.append(QString::fromLocal8Bit(argv[i]));
    if (!startsAgent(words))
        return skipnest::runSubcommand(argc, argv, words);
    if (!words.isEmpty() && words.first() == u"run")
        words.removeFirst();
    const auto options = agentOptions(words);
    if (!options)
        return static_cast<int>(skipnest::cli::ExitStatus::wrongUsage);
    return skipnest::runAgent(argc, argv, *options);
}
