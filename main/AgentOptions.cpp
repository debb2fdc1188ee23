// SPDX-License-Identifier: Apache-2.0
#include "main/Entry.h"

#include <cstdio>

namespace skipnest {

QStringList argumentWords(int argc, char** argv) {
    QStringList words;
    for (int i = 1; i < argc; ++i)
        // Not by the locale, which Qt sets up later.
        words.append(QString::fromUtf8(argv[i]));
    return words;
}

bool startsAgent(const QStringList& words) {
    return words.isEmpty() || words.first() == u"run" || words.first() == u"--background" ||
           words.first() == u"--record";
}

std::optional<AgentOptions> agentOptions(QStringList words) {
    if (!words.isEmpty() && words.first() == u"run")
        words.removeFirst();
    AgentOptions options;
    for (qsizetype i = 0; i < words.size(); ++i) {
        if (words[i] == u"--background") {
            options.popover = AgentOptions::Popover::keepClosed;
        } else if (words[i] == u"--record" && i + 1 < words.size()) {
            options.recordFile = words[++i];
        } else if (words[i] == u"--add" && i + 1 < words.size()) {
            options.addTarget = words[++i];
        } else {
            std::fprintf(stderr,
                         "skipnest: run does not understand \"%s\"\n"
                         "usage: skipnest [run [--background] [--record FILE] [--add FILE]]\n",
                         qUtf8Printable(words[i]));
            return std::nullopt;
        }
    }
    return options;
}

} // namespace skipnest
