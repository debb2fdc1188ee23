// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/ProcessFacts.h"

#include <QFile>

#include <cerrno>
#include <csignal>
#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace skipnest::linuxdesktop {
namespace {

// Command lines and environments have no upper limit worth trusting.
constexpr qint64 readLimit = 262'144;

QString procPath(std::int64_t pid, const char* name) {
    return QStringLiteral("/proc/%1/%2").arg(pid).arg(QLatin1String(name));
}

QList<QByteArray> readList(std::int64_t pid, const char* name) {
    QFile file(procPath(pid, name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.read(readLimit).split('\0');
}

} // namespace

ProcessFacts processFacts(std::int64_t pid) {
    ProcessFacts facts;
    if (pid <= 1)
        return facts;
    facts.executable = QFile::symLinkTarget(procPath(pid, "exe"));
    // An upgraded program keeps running from a file that is gone.
    const QString deleted = QStringLiteral(" (deleted)");
    if (facts.executable.endsWith(deleted))
        facts.executable.chop(deleted.size());
    for (const QByteArray& argument : readList(pid, "cmdline"))
        facts.commandLine.append(QString::fromLocal8Bit(argument));
    while (!facts.commandLine.isEmpty() && facts.commandLine.last().isEmpty())
        facts.commandLine.removeLast();
    QByteArray entry;
    QByteArray meantFor;
    for (const QByteArray& variable : readList(pid, "environ")) {
        constexpr char pidName[] = "GIO_LAUNCHED_DESKTOP_FILE_PID=";
        constexpr char fileName[] = "GIO_LAUNCHED_DESKTOP_FILE=";
        if (variable.startsWith(pidName))
            meantFor = variable.mid(qsizetype(sizeof pidName) - 1);
        else if (variable.startsWith(fileName))
            entry = variable.mid(qsizetype(sizeof fileName) - 1);
    }
    // Children inherit both variables; only the process that they were set for may use them.
    if (meantFor.toLongLong() == pid)
        facts.launchedFrom = QFile::decodeName(entry);
    return facts;
}

bool processExists(std::int64_t pid) {
    return pid > 0 && (::kill(static_cast<pid_t>(pid), 0) == 0 || errno != ESRCH);
}

ProcessHandle::ProcessHandle(std::int64_t pid) {
    // The C library's own header lacks C linkage where it has these calls at all.
    if (pid > 1)
        descriptor_ = static_cast<int>(::syscall(SYS_pidfd_open, static_cast<pid_t>(pid), 0U));
}

ProcessHandle::~ProcessHandle() {
    if (descriptor_ >= 0)
        ::close(descriptor_);
}

bool ProcessHandle::signal(int number) const {
    return descriptor_ >= 0 &&
           ::syscall(SYS_pidfd_send_signal, descriptor_, number, nullptr, 0U) == 0;
}

bool ProcessHandle::running() const {
    pollfd ended{descriptor_, POLLIN, 0};
    return descriptor_ >= 0 && ::poll(&ended, 1, 0) == 0;
}

} // namespace skipnest::linuxdesktop
