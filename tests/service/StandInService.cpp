// SPDX-License-Identifier: Apache-2.0
#include "tests/service/StandInService.h"

#include "tests/service/ServiceConnection.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSslSocket>

namespace skipnest::tests {
namespace {

using namespace Qt::StringLiterals;
using platform::Result;

ScriptedAnswer json(const QJsonObject& object, int status = 200) {
    return ScriptedAnswer::reply(status, QJsonDocument(object).toJson(QJsonDocument::Compact));
}

} // namespace

StandInService::StandInService(platform::Scheduler& scheduler, QObject* parent)
    : QTcpServer(parent), scheduler_(scheduler) {
    setRelease(u"0.0.1"_s, u"1"_s, u"https://skipnest.example/release"_s);
}

void StandInService::setCertificate(const QSslCertificate& certificate, const QSslKey& key) {
    certificate_ = certificate;
    key_ = key;
}

bool StandInService::listenHere(quint16 port) {
    return listen(QHostAddress::LocalHost, port);
}

QString StandInService::address() const {
    return u"%1://127.0.0.1:%2"_s.arg(key_.isNull() ? u"http"_s : u"https"_s).arg(serverPort());
}

void StandInService::setAnswer(const QString& path, const ScriptedAnswer& answer) {
    answers_.insert_or_assign(path, answer);
}

void StandInService::setRelease(const QString& version, const QString& build, const QString& url) {
    release_ = QJsonDocument(QJsonObject{{u"version"_s, version},
                                         {u"build"_s, build},
                                         {u"url"_s, url},
                                         {u"notes"_s, u"What is new."_s}})
                   .toJson();
}

std::vector<AcceptedRequest> StandInService::received(EndpointKind kind) const {
    std::vector<AcceptedRequest> found;
    for (const Received& each : received_) {
        if (each.judged && each.judged->kind == kind)
            found.push_back(*each.judged);
    }
    return found;
}

QStringList StandInService::violations() const {
    QStringList found;
    for (const Received& each : received_) {
        if (!each.judged)
            found.append(each.judged.failure().detail);
    }
    return found;
}

void StandInService::incomingConnection(qintptr descriptor) {
    QTcpSocket* socket = nullptr;
    if (key_.isNull()) {
        socket = new QTcpSocket;
        socket->setSocketDescriptor(descriptor);
    } else {
        auto* encrypted = new QSslSocket;
        encrypted->setLocalCertificate(certificate_);
        encrypted->setPrivateKey(key_);
        encrypted->setSocketDescriptor(descriptor);
        encrypted->startServerEncryption();
        socket = encrypted;
    }
    new ServiceConnection(
        socket, scheduler_, [this](const auto& request) { return answer(request); }, this);
}

ScriptedAnswer StandInService::answer(const Result<ServiceRequest>& request) {
    const Received& now = received_.emplace_back(
        request ? Received{*request, checkRequest(*request)} : Received{{}, request.failure()});
    if (observer_)
        observer_(now);
    const auto scripted = answers_.find(QString::fromLatin1(now.request.path));
    if (scripted != answers_.end())
        return scripted->second;
    if (!now.judged)
        return json({{u"ok"_s, false}, {u"error"_s, now.judged.failure().detail}}, 400);
    return serve(*now.judged);
}

ScriptedAnswer StandInService::serve(const AcceptedRequest& request) {
    const QString id = request.value(u"i"_s);
    switch (request.kind) {
    case EndpointKind::checkName:
        return json({{u"available"_s, leaderboard_.isFree(request.value(u"n"_s), id)}});
    case EndpointKind::board:
    case EndpointKind::boardPage:
        return json(leaderboard_.board(id));
    case EndpointKind::submit:
        submit(request);
        return json({{u"ok"_s, true},
                     {u"rank"_s, qint64{leaderboard_.rank(id)}},
                     {u"of"_s, static_cast<qint64>(leaderboard_.entries().size())}});
    case EndpointKind::remove:
        leaderboard_.remove(id);
        break;
    case EndpointKind::release:
        return ScriptedAnswer::reply(200, release_);
    case EndpointKind::feedback:
    case EndpointKind::install:
    case EndpointKind::funnel:
    case EndpointKind::crash:
    case EndpointKind::share:
    case EndpointKind::voice:
        break;
    }
    return json({{u"ok"_s, true}});
}

void StandInService::submit(const AcceptedRequest& request) {
    leaderboard_.submit({.id = request.value(u"i"_s),
                         .name = request.value(u"n"_s),
                         .country = request.value(u"c"_s),
                         .jumps = request.value(u"j"_s).toLongLong(),
                         .minutes = request.value(u"m"_s).toLongLong(),
                         .streak = request.value(u"s"_s).toLongLong()});
}

} // namespace skipnest::tests
