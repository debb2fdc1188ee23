// SPDX-License-Identifier: Apache-2.0
#include "voice/DesktopNumber.h"
#include "voice/MessagingRouter.h"
#include "voice/PhraseDecision.h"
#include "voice/VoiceFillers.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace skipnest::voice;

void require(bool holds) {
    if (!holds)
        std::abort();
}

// Text that is typed presses no key of its own.
bool isPlain(const QString& text) {
    for (const QChar c : text) {
        if (c.category() == QChar::Other_Control)
            return false;
    }
    return !text.isEmpty() && text == text.simplified();
}

struct CheckStep {
    void operator()(const VoiceCommand::OpenSite& step) const {
        require(step.url.isValid() && !step.url.host().isEmpty());
    }
    void operator()(const VoiceCommand::Search& step) const { require(!step.query.isEmpty()); }
    void operator()(const VoiceCommand::Find& step) const { require(!step.text.isEmpty()); }
    void operator()(const VoiceCommand::Window&) const {}
    void operator()(const VoiceCommand::Dictate& step) const { require(isPlain(step.text)); }
    void operator()(const VoiceCommand::MoveFile& step) const {
        require(!step.name.isEmpty() && !step.to.isEmpty());
    }
};

void check(const VoiceCommand::Parsed& parsed) {
    for (const VoiceCommand::Step& step : parsed.steps)
        std::visit(CheckStep(), step);
}

} // namespace

// What a recogniser hears: any text gives a decision, and each part of it holds what its kind
// promises.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString phrase =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QStringList words = VoiceCommand::tokenize(phrase);
    for (const QString& word : words)
        require(!word.isEmpty() && VoiceCommand::tokenize(word) == QStringList{word});
    check(VoiceCommand::parse(phrase));

    const std::vector<skipnest::model::VocabAlias> aliases{
        {QStringLiteral("sick ma"), QStringLiteral("figma"), {}}};
    for (const PhraseDecision& decision : {understand(phrase), understand(phrase, aliases)}) {
        check(decision.parsed);
        require((decision.kind == PhraseDecision::Kind::message) == decision.route.has_value());
        require((decision.kind == PhraseDecision::Kind::space) == (decision.space != 0));
        require(decision.space >= 0 && decision.space <= 9);
        require((decision.kind == PhraseDecision::Kind::steps) == !decision.parsed.steps.empty());
        require(spokenTarget(decision.parsed.target) == decision.parsed.target);
        if (decision.route) {
            require(decision.route->app != nullptr && !decision.route->contact.isEmpty());
            require(!decision.route->message || isPlain(*decision.route->message));
        }
    }
    return 0;
}
