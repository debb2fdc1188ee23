// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/CrashCapture.h"
#include "platform/HttpClient.h"
#include "platform/sim/Journal.h"

#include <map>
#include <variant>

namespace skipnest::sim {

// The network: every request is noted as the call "http" with its method, path (with the query) and
// form, and answered as told for its path.
class SimHttp final : public platform::HttpClient {
public:
    using Answer = std::variant<platform::HttpReply, platform::Failure>;

    SimHttp(platform::Scheduler& scheduler, Journal& journal)
        : scheduler_(scheduler), journal_(journal) {}

    // Every request for this path, whatever its query, gets this answer from now on, `after` that
    // long. A path without an answer has no server: the connection is refused.
    void setAnswer(const QString& path, Answer answer, platform::Duration after = {});
    [[nodiscard]] bool hasAnswer(const QString& path) const { return answers_.contains(path); }
    // Of the last request, as it went out.
    [[nodiscard]] const platform::HttpRequest& lastRequest() const { return last_; }

    [[nodiscard]] platform::Availability availability() const override { return {}; }
    [[nodiscard]] platform::HttpExchange send(const platform::HttpRequest& request,
                                              Completion completion) override;

private:
    struct Told {
        Answer answer;
        platform::Duration after{};
    };
    platform::Scheduler& scheduler_;
    Journal& journal_;
    platform::HttpRequest last_;
    std::map<QString, Told> answers_;
};

// Remembers where a crash would be recorded.
class SimCrashCapture final : public platform::CrashCapture {
public:
    [[nodiscard]] platform::Availability availability() const override { return {}; }
    platform::Outcome install(const QString& recordFile) override {
        recordFile_ = recordFile;
        return platform::Done{};
    }
    [[nodiscard]] const QString& recordFile() const { return recordFile_; }

private:
    QString recordFile_;
};

} // namespace skipnest::sim
