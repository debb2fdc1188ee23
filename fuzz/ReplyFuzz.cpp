// SPDX-License-Identifier: Apache-2.0
#include "services/CrashRecord.h"
#include "services/UpdateChecker.h"
#include "stats/ChallengeBoard.h"
#include "stats/ChallengeCoding.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace skipnest;

void require(bool holds) {
    if (!holds)
        std::abort();
}

template <typename T> bool isRight(const platform::Result<T>& result) {
    require(result || !result.failure().detail.isEmpty());
    return result.ok();
}

void checkRelease(const QByteArray& bytes) {
    for (const auto pages :
         {services::ReleasePages::httpsOnly, services::ReleasePages::httpsOrThisMachine}) {
        const auto release = services::decodeRelease(bytes, pages);
        if (!isRight(release))
            continue;
        const QUrl url(release->url, QUrl::StrictMode);
        const bool isPlain = url.scheme() == u"http";
        require(url.isValid() && (isPlain || url.scheme() == u"https"));
        require(!isPlain || (pages == services::ReleasePages::httpsOrThisMachine &&
                             (url.host() == u"127.0.0.1" || url.host() == u"::1")));
        // Nothing is newer than itself, and of two releases at most one is.
        require(!isNewer(*release, release->version, release->build));
        const services::Release swapped{release->build, release->version, release->url, {}};
        require(!isNewer(*release, swapped.version, swapped.build) ||
                !isNewer(swapped, release->version, release->build));
    }
}

void checkBoard(const QByteArray& bytes) {
    const auto board = stats::decodeBoard(bytes);
    if (!isRight(board))
        return;
    require(board->entries.size() <= 1000);
    require(board->of >= static_cast<std::int64_t>(board->entries.size()));
    require(std::ranges::is_sorted(board->entries, {}, &stats::ChallengeBoard::Entry::rank));
    for (const auto& entry : board->entries) {
        require(entry.rank >= 1 && entry.jumps >= 0 && entry.minutes >= 0 && entry.streak >= 0);
        require(!entry.name.isEmpty() && !entry.name.contains(u'\n'));
        require(entry.country.isEmpty() || entry.country.size() == 2);
    }
}

} // namespace

// What the web service answers, and what an ended run left to be sent to it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    checkRelease(bytes);
    checkBoard(bytes);
    if (const auto rank = stats::decodeRank(bytes))
        require(rank->rank >= 1 && rank->of >= 0);
    (void)stats::decodeAvailable(bytes);
    const auto crash = services::decodeCrashRecord(bytes);
    if (isRight(crash))
        require(!crash->name.contains(u'/') && !crash->reason.contains(u'/') &&
                !crash->stack.contains(u'/'));
    return 0;
}
