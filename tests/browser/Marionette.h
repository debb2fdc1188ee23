// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QTcpSocket>

namespace skipnest::browser {

// Firefox's own remote control, by which tests load the extension and open tabs: messages of a
// decimal length, a colon, and JSON.
class Marionette {
public:
    // False where nobody answers at this port of the loopback.
    [[nodiscard]] bool connect(int port);
    // What Firefox answered; undefined where it refused, which is printed, or did not answer.
    QJsonValue call(const QString& command, const QJsonObject& parameters = {});

private:
    [[nodiscard]] QByteArray receive();

    QTcpSocket socket_;
    QByteArray received_;
    int lastId_ = 0;
};

} // namespace skipnest::browser
