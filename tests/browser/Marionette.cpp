// SPDX-License-Identifier: Apache-2.0
#include "tests/browser/Marionette.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <iostream>

namespace skipnest::browser {
namespace {

constexpr int patience = 20'000; // ms; Firefox starts slowly

} // namespace

bool Marionette::connect(int port) {
    socket_.connectToHost(QStringLiteral("127.0.0.1"), static_cast<quint16>(port));
    return socket_.waitForConnected(patience) && !receive().isEmpty(); // its greeting
}

QByteArray Marionette::receive() {
    for (;;) {
        const qsizetype colon = received_.indexOf(':');
        const qsizetype length = colon < 0 ? -1 : received_.left(colon).toLongLong();
        if (length >= 0 && received_.size() > colon + length) {
            const QByteArray message = received_.mid(colon + 1, length);
            received_.remove(0, colon + 1 + length);
            return message;
        }
        if (!socket_.waitForReadyRead(patience))
            return {};
        received_ += socket_.readAll();
    }
}

QJsonValue Marionette::call(const QString& command, const QJsonObject& parameters) {
    const QByteArray message =
        QJsonDocument(QJsonArray{0, ++lastId_, command, parameters}).toJson(QJsonDocument::Compact);
    socket_.write(QByteArray::number(message.size()) + ':' + message);
    const QJsonArray answer = QJsonDocument::fromJson(receive()).array();
    if (answer.size() != 4 || !answer[2].isNull()) {
        std::cout << qPrintable(command) << ": "
                  << QJsonDocument(answer).toJson(QJsonDocument::Compact).constData() << std::endl;
        return QJsonValue::Undefined;
    }
    return answer[3];
}

} // namespace skipnest::browser
