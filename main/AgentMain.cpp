// SPDX-License-Identifier: Apache-2.0
#include "cli/CommandLine.h"
#include "main/Entry.h"

int main(int argc, char** argv) {
    const QStringList words = skipnest::argumentWords(argc, argv);
    if (!skipnest::startsAgent(words))
        return skipnest::runSubcommandOfAgent(argc, argv, words);
    const auto options = skipnest::agentOptions(words);
    if (!options)
        return static_cast<int>(skipnest::cli::ExitStatus::wrongUsage);
    return skipnest::runAgent(argc, argv, *options);
}
