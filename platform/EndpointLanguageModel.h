// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/HttpClient.h"
#include "platform/LanguageModel.h"
#include "platform/UserDefaults.h"

#include <memory>

namespace skipnest::platform {

// A model behind an address that speaks the chat completions of OpenAI's interface, as the server
// of llama.cpp and Ollama do. Without an address nothing is ever sent; with one, nothing goes
// anywhere else: no proxy, no redirect, and only to this machine unless the person allows others.
//
// The address is that of the server ("http://127.0.0.1:8080"), its "/v1", or the whole one up to
// "/chat/completions". "This machine" is 127.0.0.0/8 or ::1 written as such: "localhost" is a name,
// and a name may be answered from anywhere, so it is refused like any other.
//
// The schema is sent twice, as the constraint of the answer and behind the instructions: servers
// turn the first into a grammar that knows nothing of its descriptions.
class EndpointLanguageModel final : public LanguageModel {
public:
    // Longer answers are failures.
    static constexpr qsizetype largestReply = 64 * 1024;
    // What warming may take: a server may load the model first.
    static constexpr Duration warmingDeadline = std::chrono::seconds(60);

    EndpointLanguageModel(HttpClient& http, const UserDefaults& defaults, Scheduler& scheduler)
        : http_(http), defaults_(defaults), scheduler_(scheduler) {}

    [[nodiscard]] Availability availability() const override;
    [[nodiscard]] ModelRequest respond(const ModelTask& task, const QString& prompt,
                                       Duration deadline, Completion completion) override;
    // One request with no prompt and one word of answer: the server keeps what it read of the
    // instructions. Not while another one is on its way.
    void warm(const ModelTask& task) override;

private:
    [[nodiscard]] HttpRequest request(const ModelTask& task, const QString& prompt,
                                      Duration deadline, const QByteArray& more) const;

    HttpClient& http_;
    const UserDefaults& defaults_;
    Scheduler& scheduler_;
    HttpExchange warming_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

// The text of the one answer in a chat completion; fails where it is none, or was cut off.
[[nodiscard]] Result<QString> readChatCompletion(const QByteArray& body);

} // namespace skipnest::platform
