// SPDX-License-Identifier: Apache-2.0
#include "platform/WebService.h"

namespace skipnest::platform {
namespace {

// By literal address only: a name may be answered from anywhere.
bool isThisMachine(const QString& host) {
    return host == u"127.0.0.1" || host == u"::1";
}

Availability judge(const QString& address, const QUrl& url, const HttpClient& http) {
    if (address.isEmpty())
        return {Availability::State::unavailable,
                QStringLiteral("This build has no web service, so nothing is ever sent."),
                QStringLiteral("Build with SKIPNEST_SERVICE_URL set to its address.")};
    const bool isSafe =
        url.scheme() == u"https" || (url.scheme() == u"http" && isThisMachine(url.host()));
    if (!url.isValid() || url.host().isEmpty() || !isSafe)
        return {Availability::State::unavailable,
                QStringLiteral("The web service's address %1 is not https, so nothing is sent.")
                    .arg(address),
                QStringLiteral("Build with an https address in SKIPNEST_SERVICE_URL.")};
    return http.availability();
}

} // namespace

QByteArray formEncoded(const FormFields& fields) {
    QByteArray text;
    for (const auto& [name, value] : fields) {
        if (!text.isEmpty())
            text += '&';
        text += QUrl::toPercentEncoding(name) + '=' + QUrl::toPercentEncoding(value);
    }
    return text;
}

WebService::WebService(HttpClient& http, Scheduler& scheduler, const QString& address)
    : http_(http), scheduler_(scheduler) {
    QUrl url(address.endsWith(u'/') ? address.chopped(1) : address, QUrl::StrictMode);
    availability_ = judge(address, url, http);
    if (availability_.state != Availability::State::unavailable)
        base_ = url;
}

Availability WebService::availability() const {
    return availability_;
}

QUrl WebService::url(const QString& path, const FormFields& query) const {
    if (!isConfigured())
        return {};
    QUrl url = base_;
    url.setPath(base_.path() + path);
    if (!query.empty())
        url.setQuery(QString::fromLatin1(formEncoded(query)), QUrl::StrictMode);
    return url;
}

void WebService::get(const QString& path, const FormFields& query, Completion completion,
                     qsizetype largestReply) {
    send(
        {.method = HttpRequest::Method::get, .url = url(path, query), .largestReply = largestReply},
        std::move(completion));
}

void WebService::post(const QString& path, const FormFields& form, Completion completion) {
    send({.method = HttpRequest::Method::post,
          .url = url(path),
          .contentType = "application/x-www-form-urlencoded",
          .body = formEncoded(form)},
         std::move(completion));
}

void WebService::send(HttpRequest request, Completion completion) {
    if (!isConfigured()) {
        scheduler_.post([completion = std::move(completion), why = availability_.reason,
                         alive = std::weak_ptr(alive_)] {
            if (completion && !alive.expired())
                completion(Failure{Failure::Kind::unavailable, why});
        });
        return;
    }
    // A proxy would look for this machine's service on its own.
    if (isThisMachine(base_.host()))
        request.proxy = HttpRequest::Proxy::none;
    const std::uint64_t number = nextExchange_++;
    exchanges_[number] = http_.send(request, [this, number, completion = std::move(completion)](
                                                 const Result<HttpReply>& reply) {
        // Kept until the completion has returned: it may start the next request, or end us.
        const HttpExchange finished = std::move(exchanges_[number]);
        exchanges_.erase(number);
        if (completion)
            completion(reply);
    });
}

} // namespace skipnest::platform
