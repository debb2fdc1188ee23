// SPDX-License-Identifier: Apache-2.0
// Titles, phrases, use counts and what was heard come from outside: the first line is the phrase,
// each further one a target. The ranking has to be the formula's, whatever they are.
#include "tests/voice/ReferenceScorer.h"
#include "voice/Aliases.h"
#include "voice/UseHistory.h"

#include <QString>
#include <QStringList>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace skipnest;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QStringList lines = QString::fromUtf8(bytes).split(u'\n');
    std::vector<voice::JumpTarget> targets;
    voice::UseCounts uses;
    std::vector<model::VocabAlias> aliases;
    for (const QString& line : lines.mid(1)) {
        const QStringList fields = line.split(u'\t');
        const auto length = static_cast<std::size_t>(line.size());
        targets.push_back({.title = fields[0],
                           .subtitle = fields.value(1),
                           .kind = static_cast<voice::JumpTarget::Kind>(length % 5),
                           .owner = fields.value(2),
                           .hot = length % 2 == 0});
        uses.insert(fields[0].toLower(), static_cast<std::int64_t>(length % 6));
        aliases.push_back({fields[0], fields.value(1), {}});
    }
    const voice::ReferenceScorer reference;
    if (voice::score(lines[0], targets, uses) != reference.score(lines[0], targets, uses))
        std::abort();
    (void)voice::withAliases(lines[0], aliases);
    if (const auto decoded = voice::UseHistory::decoded(bytes)) {
        const auto again = voice::UseHistory::decoded(decoded->history.encoded());
        if (!again || again->leftOut != 0 || again->history != decoded->history)
            std::abort();
    }
    return 0;
}
