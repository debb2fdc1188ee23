// SPDX-License-Identifier: Apache-2.0
#include "tests/x11/XSession.h"

#include <QCoreApplication>
#include <QProcess>

namespace skipnest::tests {

using namespace std::chrono_literals;

bool waitUntil(platform::QtScheduler& scheduler, const std::function<bool()>& condition) {
    const platform::Instant deadline = scheduler.now() + 5s;
    // Other clients' events wake nobody here, so the condition is looked at every millisecond.
    const platform::Timer wake = scheduler.every(1ms, "condition", [] {});
    while (!condition()) {
        if (scheduler.now() >= deadline)
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

bool runTool(const char* commandLine) {
    QStringList words = QProcess::splitCommand(QString::fromLatin1(commandLine));
    const QString program = words.takeFirst();
    return QProcess::execute(program, words) == 0;
}

} // namespace skipnest::tests
