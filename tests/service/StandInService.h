// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Scheduler.h"
#include "tests/service/Endpoints.h"
#include "tests/service/Leaderboard.h"
#include "tests/service/ScriptedAnswer.h"
#include "tests/service/ServiceRequest.h"

#include <QSslCertificate>
#include <QSslKey>
#include <QStringList>
#include <QTcpServer>

#include <functional>
#include <map>
#include <vector>

namespace skipnest::tests {

// The web service on a port of this machine. It answers as the real one would, and a request that
// is not right in every point gets status 400 and is noted as a violation. A test can say for a
// path what is answered in its stead; the request is checked all the same.
//
//     StandInService service(scheduler);
//     ASSERT_TRUE(service.listenHereHere());
//     ... a program built or told to talk to service.address() ...
//     EXPECT_THAT(service.violations(), IsEmpty());
class StandInService final : public QTcpServer {
    Q_OBJECT
public:
    struct Received {
        ServiceRequest request;
        platform::Result<AcceptedRequest> judged;
    };

    explicit StandInService(platform::Scheduler& scheduler, QObject* parent = nullptr);

    // Before listenHere(): speaks TLS with this certificate.
    void setCertificate(const QSslCertificate& certificate, const QSslKey& key);
    // On 127.0.0.1; port 0 is any that is free.
    [[nodiscard]] bool listenHere(quint16 port = 0);
    // "http://127.0.0.1:PORT", or https.
    [[nodiscard]] QString address() const;

    // What is answered to every request for this path from now on.
    void setAnswer(const QString& path, const ScriptedAnswer& answer);
    // The release that "/version.json" tells of.
    void setRelease(const QString& version, const QString& build, const QString& url);
    [[nodiscard]] Leaderboard& leaderboard() { return leaderboard_; }

    // Everything that came, in order.
    [[nodiscard]] const std::vector<Received>& received() const { return received_; }
    // The right ones of one kind.
    [[nodiscard]] std::vector<AcceptedRequest> received(EndpointKind kind) const;
    [[nodiscard]] QStringList violations() const;
    // Told of each request as it comes.
    void setObserver(std::function<void(const Received&)> observer) {
        observer_ = std::move(observer);
    }

protected:
    void incomingConnection(qintptr descriptor) override;

private:
    [[nodiscard]] ScriptedAnswer answer(const platform::Result<ServiceRequest>& request);
    [[nodiscard]] ScriptedAnswer serve(const AcceptedRequest& request);
    void submit(const AcceptedRequest& request);

    platform::Scheduler& scheduler_;
    QSslCertificate certificate_;
    QSslKey key_;
    std::map<QString, ScriptedAnswer> answers_;
    QByteArray release_;
    Leaderboard leaderboard_;
    std::vector<Received> received_;
    std::function<void(const Received&)> observer_;
};

} // namespace skipnest::tests
