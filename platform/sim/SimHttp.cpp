// SPDX-License-Identifier: Apache-2.0
#include "platform/sim/SimHttp.h"

#include <memory>

namespace skipnest::sim {

using namespace Qt::StringLiterals;
using platform::Failure;
using platform::HttpReply;
using platform::HttpRequest;
using platform::Result;

void SimHttp::setAnswer(const QString& path, Answer answer, platform::Duration after) {
    answers_.insert_or_assign(path, Told{std::move(answer), after});
}

platform::HttpExchange SimHttp::send(const HttpRequest& request, Completion completion) {
    last_ = request;
    QString path = request.url.path();
    const auto told = answers_.find(path);
    if (request.url.hasQuery())
        path += u'?' + request.url.query(QUrl::FullyEncoded);
    const bool isPost = request.method == HttpRequest::Method::post;
    QJsonObject fields{{u"method"_s, isPost ? u"POST"_s : u"GET"_s}, {u"path"_s, path}};
    if (isPost)
        fields.insert(u"form"_s, QString::fromUtf8(request.body));
    journal_.call(u"http"_s, fields);

    const Told noServer{Failure{Failure::Kind::refused, u"no server answers"_s}, {}};
    const Told& answer = told == answers_.end() ? noServer : told->second;
    // A server that takes longer than the caller waits is cut off then.
    const bool isLate = answer.after > request.deadline;
    const Answer heard =
        isLate ? Answer(Failure{Failure::Kind::timedOut, u"no reply in time"_s}) : answer.answer;
    const auto timer = std::make_shared<platform::Timer>();
    *timer = scheduler_.after(
        isLate ? request.deadline : answer.after, "sim http",
        [completion = std::move(completion), heard, largest = request.largestReply] {
            if (const auto* failure = std::get_if<Failure>(&heard))
                return completion(*failure);
            const auto& reply = std::get<HttpReply>(heard);
            if (reply.body.size() > largest)
                return completion(Failure{Failure::Kind::tooLarge, u"the reply is too long"_s});
            completion(reply);
        });
    return platform::HttpExchange([timer] { timer->reset(); });
}

} // namespace skipnest::sim
