// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "voice/MessagingRouter.h"
#include "voice/SpokenWords.h"

namespace skipnest::voice {

// A place in a phrase where a messaging application is named.
struct AppMention {
    const MessagingRouter::App* app = nullptr;
    std::size_t first = 0;
    std::size_t end = 0;
    // By a word that starts a dictation as well ("message"): the weaker reading.
    bool isTrigger = false;
};

// In the order in which they are said; where two names start at one word, the longer.
[[nodiscard]] std::vector<AppMention> appMentions(const std::vector<SpokenWord>& words);

} // namespace skipnest::voice
