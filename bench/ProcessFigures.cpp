// SPDX-License-Identifier: Apache-2.0
#include "bench/ProcessFigures.h"

#include <QDir>
#include <QFile>

namespace skipnest::bench {
namespace {

// The number after "FIELD:" in a file of /proc.
qint64 field(const QString& path, const char* name) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray key = QByteArray(name) + ':';
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.startsWith(key))
            return line.mid(key.size()).simplified().split(' ').first().toLongLong();
    }
    return 0;
}

QString processFolder(pid_t pid) {
    return QStringLiteral("/proc/%1/").arg(pid);
}

} // namespace

std::vector<ThreadSwitches> contextSwitches(pid_t pid) {
    std::vector<ThreadSwitches> result;
    const QDir tasks(processFolder(pid) + QStringLiteral("task"));
    for (const QString& task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString status = tasks.filePath(task + QStringLiteral("/status"));
        QFile name(tasks.filePath(task + QStringLiteral("/comm")));
        if (!name.open(QIODevice::ReadOnly))
            continue;
        result.push_back(
            {QStringLiteral("%1 (%2)").arg(QString::fromUtf8(name.readAll().trimmed()), task),
             field(status, "voluntary_ctxt_switches"),
             field(status, "nonvoluntary_ctxt_switches")});
    }
    return result;
}

qint64 memory(pid_t pid, const char* name) {
    return field(processFolder(pid) + QStringLiteral("smaps_rollup"), name);
}

int openDescriptors(pid_t pid) {
    return static_cast<int>(QDir(processFolder(pid) + QStringLiteral("fd"))
                                .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
                                .size());
}

} // namespace skipnest::bench
