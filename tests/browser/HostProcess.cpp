// SPDX-License-Identifier: Apache-2.0
#include "tests/browser/HostProcess.h"

#include "platform/BrowserExtension.h"

#include <QDeadlineTimer>
#include <QDir>

namespace skipnest::browser {

std::optional<QByteArray> Incoming::next(int milliseconds) {
    const QDeadlineTimer deadline(milliseconds);
    for (;;) {
        const QByteArray bytes = device_.readAll();
        reader_.append(bytes.constData(), bytes.size());
        if (auto message = reader_.next())
            return message;
        if (!device_.waitForReadyRead(static_cast<int>(deadline.remainingTime())))
            return std::nullopt;
    }
}

HostProcess::HostProcess(const QString& runtimeFolder, const QStringList& arguments) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtimeFolder);
    process_.setProcessEnvironment(environment);
    process_.start(QStringLiteral(SKIPNEST_BROWSER_HOST), arguments);
    process_.waitForStarted();
}

HostProcess::~HostProcess() {
    process_.kill();
    process_.waitForFinished();
}

QStringList HostProcess::origin() {
    return {QStringLiteral("chrome-extension://%1/").arg(platform::chromiumExtensionId)};
}

void HostProcess::send(const QByteArray& bytes) {
    process_.write(bytes);
    while (process_.bytesToWrite() > 0 && process_.waitForBytesWritten(patience)) {
    }
}

std::optional<int> HostProcess::ended(int milliseconds) {
    if (process_.state() != QProcess::NotRunning && !process_.waitForFinished(milliseconds))
        return std::nullopt;
    return process_.exitCode();
}

AgentEnd::AgentEnd(const QString& runtimeFolder) {
    const QString folder = runtimeFolder + QStringLiteral("/Skipnest");
    QDir().mkpath(folder);
    QLocalServer::removeServer(platform::tabsSocketPath(folder));
    server_.listen(platform::tabsSocketPath(folder));
}

bool AgentEnd::accept(int milliseconds) {
    if (!server_.hasPendingConnections() && !server_.waitForNewConnection(milliseconds))
        return false;
    socket_.reset(server_.nextPendingConnection());
    socket_->setParent(nullptr);
    incoming_ = std::make_unique<Incoming>(*socket_);
    return receive() == QByteArrayLiteral("{\"hello\":1}");
}

void AgentEnd::send(const QByteArray& bytes) {
    socket_->write(bytes);
    while (socket_->bytesToWrite() > 0 && socket_->waitForBytesWritten(patience)) {
    }
}

void AgentEnd::hangUp() {
    incoming_.reset();
    socket_.reset();
}

} // namespace skipnest::browser
