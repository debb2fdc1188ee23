// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/shell/DetachedProcesses.h"

#include <QProcess>
#include <QStandardPaths>

namespace skipnest::linuxdesktop {

using platform::Failure;

platform::Outcome DetachedProcesses::launch(const QString& program, const QStringList& arguments) {
    const QString found = QStandardPaths::findExecutable(program);
    if (found.isEmpty())
        return Failure{Failure::Kind::notFound, program + QStringLiteral(" is not installed")};
    if (!QProcess::startDetached(found, arguments))
        return Failure{Failure::Kind::system, found + QStringLiteral(" cannot be started")};
    return platform::Done{};
}

} // namespace skipnest::linuxdesktop
