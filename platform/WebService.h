// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/HttpClient.h"

#include <QString>

#include <cstdint>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace skipnest::platform {

// Names and values in the order they are sent.
using FormFields = std::vector<std::pair<QString, QString>>;

// `a=1&b=%C3%A4`: everything but letters, digits and "-._~" is percent-encoded, a blank as "%20".
[[nodiscard]] QByteArray formEncoded(const FormFields& fields);

// The makers' web service that this build talks to. Without an address, or with one that is neither
// https nor on this machine, nothing is ever sent and every request fails as `unavailable`.
class WebService {
public:
    using Completion = HttpClient::Completion;

    // `address` as the build has it, for example "https://example.org"; empty for none.
    WebService(HttpClient& http, Scheduler& scheduler, const QString& address);

    [[nodiscard]] Availability availability() const;
    [[nodiscard]] bool isConfigured() const { return !base_.isEmpty(); }
    // The address of a page, for a browser; empty where there is no service.
    [[nodiscard]] QUrl url(const QString& path, const FormFields& query = {}) const;

    // `path` begins with "/". `completion` (may be empty) is called once, on the main thread, never
    // from inside, and not at all once this object is gone.
    void get(const QString& path, const FormFields& query, Completion completion,
             qsizetype largestReply = HttpRequest().largestReply);
    // The fields as "application/x-www-form-urlencoded".
    void post(const QString& path, const FormFields& form, Completion completion);

private:
    void send(HttpRequest request, Completion completion);

    HttpClient& http_;
    Scheduler& scheduler_;
    QUrl base_;
    Availability availability_;
    std::map<std::uint64_t, HttpExchange> exchanges_; // on their way
    std::uint64_t nextExchange_ = 0;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::platform
