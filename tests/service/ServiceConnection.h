// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Scheduler.h"
#include "tests/service/ScriptedAnswer.h"
#include "tests/service/ServiceRequest.h"

#include <QTcpSocket>

#include <functional>

namespace skipnest::tests {

// One connection: reads a request, asks for its answer and gives it. Deletes itself when the other
// side has gone.
class ServiceConnection final : public QObject {
    Q_OBJECT
public:
    using Answerer = std::function<ScriptedAnswer(const platform::Result<ServiceRequest>& request)>;

    // Takes the socket over.
    ServiceConnection(QTcpSocket* socket, platform::Scheduler& scheduler, Answerer answerer,
                      QObject* parent);

private:
    void read();
    void give(const ScriptedAnswer& answer);
    void trickle();
    void flood();

    QTcpSocket* socket_;
    platform::Scheduler& scheduler_;
    Answerer answerer_;
    QByteArray received_;
    bool isAnswered_ = false;
    QByteArray trickling_;
    qint64 flooded_ = 0;
    platform::Timer timer_;
};

} // namespace skipnest::tests
