// SPDX-License-Identifier: Apache-2.0
#include "voice/AppMentions.h"

#include <algorithm>

namespace skipnest::voice {
namespace {

struct Name {
    const MessagingRouter::App* app;
    QStringList words; // "what's app" is three
};

const std::vector<Name>& names() {
    static const std::vector<Name> table = [] {
        std::vector<Name> made;
        for (const MessagingRouter::App& app : MessagingRouter::apps()) {
            for (const QString& name : app.names)
                made.push_back({&app, VoiceCommand::tokenize(name)});
        }
        std::ranges::stable_sort(
            made, [](const Name& a, const Name& b) { return a.words.size() > b.words.size(); });
        return made;
    }();
    return table;
}

// "imessages", "whatsapps": a plural is the same application.
bool isWordOf(const QString& spoken, const QString& name) {
    return spoken == name ||
           (spoken.size() == name.size() + 1 && spoken.endsWith(u's') && spoken.startsWith(name));
}

bool standsAt(const Name& name, const std::vector<SpokenWord>& words, std::size_t at) {
    const auto count = static_cast<std::size_t>(name.words.size());
    if (at + count > words.size())
        return false;
    for (std::size_t i = 0; i < count; ++i) {
        if (!isWordOf(words[at + i].text, name.words[static_cast<qsizetype>(i)]))
            return false;
    }
    return true;
}

} // namespace

std::vector<AppMention> appMentions(const std::vector<SpokenWord>& words) {
    std::vector<AppMention> found;
    for (std::size_t at = 0; at < words.size();) {
        const auto name = std::ranges::find_if(
            names(), [&](const Name& one) { return standsAt(one, words, at); });
        if (name == names().end()) {
            ++at;
            continue;
        }
        const std::size_t end = at + static_cast<std::size_t>(name->words.size());
        found.push_back({name->app, at, end, end == at + 1 && words[at].use->dictationTrigger});
        at = end;
    }
    return found;
}

} // namespace skipnest::voice
