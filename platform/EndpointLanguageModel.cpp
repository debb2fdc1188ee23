// SPDX-License-Identifier: Apache-2.0
#include "platform/EndpointLanguageModel.h"

#include "platform/LanguageModelSettings.h"

#include <QHostAddress>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <utility>

namespace skipnest::platform {
namespace {

using namespace Qt::StringLiterals;

bool isThisMachine(const QString& host) {
    QHostAddress address;
    if (!address.setAddress(host) || !address.scopeId().isEmpty())
        return false;
    return address == QHostAddress(QHostAddress::LocalHostIPv6) ||
           (address.protocol() == QAbstractSocket::IPv4Protocol &&
            address.isInSubnet(QHostAddress(u"127.0.0.0"_s), 8));
}

struct Judged {
    QUrl url; // where requests go; empty while unavailable
    Availability availability;
};

Judged unavailable(const QString& reason, const QString& remedy) {
    return {{}, {Availability::State::unavailable, reason, remedy}};
}

Judged judge(const LanguageModelSettings& settings) {
    if (settings.endpoint.isEmpty())
        return unavailable(u"No language model is set up, so phrases are understood by their words "
                           "alone."_s,
                           u"Start a model server on this machine and enter its address in the "
                           "voice settings."_s);
    QUrl url(settings.endpoint, QUrl::StrictMode);
    if (!url.isValid() || url.host().isEmpty() || !url.userInfo().isEmpty() || url.hasQuery() ||
        url.hasFragment() || (url.scheme() != u"http" && url.scheme() != u"https"))
        return unavailable(u"The language model's address is none that can be asked."_s,
                           u"Enter one like http://127.0.0.1:8080 in the voice settings."_s);
    if (!isThisMachine(url.host()) && !settings.allowsOtherMachines)
        return unavailable(u"The language model's address is not written as one of this machine, "
                           "so nothing is sent."_s,
                           u"Write 127.0.0.1 in place of a name, or allow other machines in the "
                           "voice settings."_s);
    QString path = url.path();
    while (path.endsWith(u'/'))
        path.chop(1);
    if (!path.endsWith(u"/chat/completions"))
        path += path.endsWith(u"/v1") ? u"/chat/completions"_s : u"/v1/chat/completions"_s;
    url.setPath(path);
    return {url, {}};
}

// As a JSON literal.
QByteArray quoted(const QString& text) {
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return array.mid(1, array.size() - 2);
}

QByteArray message(const char* role, const QString& content) {
    return QByteArray("{\"role\":\"") + role + "\",\"content\":" + quoted(content) + '}';
}

QString systemText(const ModelTask& task) {
    if (task.schema.isEmpty())
        return task.instructions;
    return task.instructions +
           u"\n\nAnswer with one JSON object of this schema and nothing else:\n"_s +
           QString::fromUtf8(task.schema);
}

} // namespace

Availability EndpointLanguageModel::availability() const {
    const Judged judged = judge(LanguageModelSettings::read(defaults_));
    return judged.url.isEmpty() ? judged.availability : http_.availability();
}

// Put together as text: a QJsonObject would sort the properties of the schema.
HttpRequest EndpointLanguageModel::request(const ModelTask& task, const QString& prompt,
                                           Duration deadline, const QByteArray& more) const {
    const LanguageModelSettings settings = LanguageModelSettings::read(defaults_);
    QByteArray body = "{";
    if (!settings.name.isEmpty())
        body += "\"model\":" + quoted(settings.name) + ',';
    body += "\"messages\":[" + message("system", systemText(task)) + ',' + message("user", prompt) +
            "],\"temperature\":0,\"stream\":false";
    if (!task.schema.isEmpty())
        body += ",\"response_format\":{\"type\":\"json_schema\",\"json_schema\":{\"name\":" +
                quoted(task.schemaName) + ",\"strict\":true,\"schema\":" + task.schema + "}}";
    body += more + '}';
    return {.method = HttpRequest::Method::post,
            .url = judge(settings).url,
            .contentType = "application/json",
            .body = body,
            .proxy = HttpRequest::Proxy::none,
            .deadline = deadline,
            .largestReply = largestReply};
}

ModelRequest EndpointLanguageModel::respond(const ModelTask& task, const QString& prompt,
                                            Duration deadline, Completion completion) {
    const Availability now = availability();
    if (now.state == Availability::State::unavailable) {
        const auto wanted = std::make_shared<bool>(true);
        scheduler_.post([wanted, completion = std::move(completion), why = now.reason,
                         alive = std::weak_ptr(alive_)] {
            if (*wanted && !alive.expired())
                completion(Failure{Failure::Kind::unavailable, why});
        });
        return ModelRequest([wanted] { *wanted = false; });
    }
    const auto exchange = std::make_shared<HttpExchange>();
    *exchange = http_.send(request(task, prompt, deadline, {}), [completion =
                                                                     std::move(completion)](
                                                                    const Result<HttpReply>&
                                                                        reply) {
        if (!reply)
            return completion(reply.failure());
        if (!reply->isSuccess())
            return completion(Failure{Failure::Kind::refused, u"status %1"_s.arg(reply->status)});
        completion(readChatCompletion(reply->body));
    });
    return ModelRequest([exchange] { exchange->reset(); });
}

void EndpointLanguageModel::warm(const ModelTask& task) {
    if (warming_ || availability().state == Availability::State::unavailable)
        return;
    warming_ = http_.send(request(task, {}, warmingDeadline, ",\"max_tokens\":1"),
                          [this](const Result<HttpReply>&) { warming_.reset(); });
}

Result<QString> readChatCompletion(const QByteArray& body) {
    const auto malformed = [](const QString& why) {
        return Result<QString>(Failure{Failure::Kind::malformed, why});
    };
    const QJsonDocument document = QJsonDocument::fromJson(body);
    if (!document.isObject())
        return malformed(u"the server's reply is no JSON object"_s);
    const QJsonArray choices = document.object().value("choices"_L1).toArray();
    if (choices.size() != 1)
        return malformed(u"the server's reply holds no one answer"_s);
    const QJsonObject choice = choices.first().toObject();
    if (choice.value("finish_reason"_L1).toString() == u"length")
        return malformed(u"the server cut the answer off"_s);
    const QJsonValue content = choice.value("message"_L1).toObject().value("content"_L1);
    if (!content.isString())
        return malformed(u"the server's answer has no text"_s);
    return content.toString();
}

} // namespace skipnest::platform
