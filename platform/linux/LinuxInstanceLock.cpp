// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/LinuxInstanceLock.h"

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/PosixFiles.h"
#include "platform/linux/SystemError.h"

#include <QDeadlineTimer>
#include <QFile>

#include <cerrno>
#include <csignal>
#include <memory>

#include <fcntl.h>
#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace skipnest::linuxdesktop {

using platform::Done;
using platform::Failure;
using platform::InstanceToken;
using platform::Outcome;
using platform::ProcessIdentifier;
using platform::Result;

namespace {

const QString startFile = QStringLiteral("start.lock");
const QString agentFile = QStringLiteral("agent.lock");

struct HolderRecord {
    pid_t pid = -1;
    quint64 startTime = 0; // clock ticks since the machine started, as /proc/PID/stat has it

    bool operator==(const HolderRecord&) const = default;
};

flock wholeFile(short type) {
    flock lock{};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    return lock;
}

enum class Attempt { locked, taken, failed };

Attempt tryLock(const FileDescriptor& file) {
    flock lock = wholeFile(F_WRLCK);
    if (::fcntl(file.get(), F_OFD_SETLK, &lock) == 0)
        return Attempt::locked;
    return errno == EAGAIN || errno == EACCES ? Attempt::taken : Attempt::failed;
}

bool lockedByAnother(const FileDescriptor& file) {
    flock lock = wholeFile(F_WRLCK);
    return ::fcntl(file.get(), F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(4096) : QByteArray();
}

// Field 22. The second one, the program's name in parentheses, may itself hold blanks and brackets.
quint64 startTimeOf(pid_t pid) {
    const QByteArray stat = contentOf(QStringLiteral("/proc/%1/stat").arg(pid));
    const auto fields = stat.mid(stat.lastIndexOf(')') + 1).trimmed().split(' ');
    constexpr qsizetype startTimeField = 22 - 3;
    return fields.size() > startTimeField ? fields.at(startTimeField).toULongLong() : 0;
}

// The file name of the program a process runs. An update that replaced the file under a running
// agent shows as "NAME (deleted)".
QByteArray programOf(pid_t pid) {
    QByteArray path =
        QFile::encodeName(QFile::symLinkTarget(QStringLiteral("/proc/%1/exe").arg(pid)));
    constexpr QByteArrayView deleted(" (deleted)");
    if (path.endsWith(deleted))
        path.chop(deleted.size());
    return path.mid(path.lastIndexOf('/') + 1);
}

bool isThisProgram(const HolderRecord& record) {
    return record.pid > 0 && record.startTime != 0 && startTimeOf(record.pid) == record.startTime &&
           !programOf(record.pid).isEmpty() && programOf(record.pid) == programOf(::getpid());
}

HolderRecord recordIn(const QString& path) {
    const auto words = contentOf(path).trimmed().split(' ');
    if (words.size() != 2)
        return {};
    return {words.at(0).toInt(), words.at(1).toULongLong()};
}

std::optional<HolderRecord> verifiedHolder(const QString& path) {
    const FileDescriptor file(
        ::open(QFile::encodeName(path).constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC | O_NOFOLLOW));
    if (!file || !lockedByAnother(file))
        return std::nullopt;
    const HolderRecord record = recordIn(path);
    if (!isThisProgram(record))
        return std::nullopt;
    return record;
}

// glibc 2.36 has these two, but declares them without C linkage.
FileDescriptor openProcess(pid_t pid) {
    return FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, pid, 0)));
}

long sendSignal(const FileDescriptor& process, int signal) {
    return ::syscall(SYS_pidfd_send_signal, process.get(), signal, nullptr, 0);
}

InstanceToken tokenFor(FileDescriptor file) {
    auto held = std::make_shared<FileDescriptor>(std::move(file));
    return InstanceToken([held] { (void)held->close(); });
}

} // namespace

LinuxInstanceLock::LinuxInstanceLock(QString runtimeFolder, std::chrono::milliseconds startWait)
    : folder_(std::move(runtimeFolder)), startWait_(startWait) {}

Result<FileDescriptor> LinuxInstanceLock::openLockFile(const QString& name) const {
    if (const Outcome created = PosixFiles().createFolder(folder_); !created)
        return created.failure();
    const QString path = folder_ + u'/' + name;
    FileDescriptor file(::open(QFile::encodeName(path).constData(),
                               O_RDWR | O_CREAT | O_NONBLOCK | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!file)
        return systemFailure(errno, QStringLiteral("open"), path);
    return file;
}

Result<InstanceToken> LinuxInstanceLock::enterStart() {
    Result<FileDescriptor> opened = openLockFile(startFile);
    if (!opened)
        return opened.failure();
    FileDescriptor file = std::move(opened).value();
    // The kernel's waiting lock has no time limit but a signal, which would be the whole process's.
    // Asking 50 times a second instead costs nothing beside a start, and there is no event loop yet
    // that this could hold up.
    constexpr int pause = 20;
    for (const QDeadlineTimer deadline(startWait_);;) {
        switch (tryLock(file)) {
        case Attempt::locked:
            return tokenFor(std::move(file));
        case Attempt::failed:
            return systemFailure(errno, QStringLiteral("lock"), folder_ + u'/' + startFile);
        case Attempt::taken:
            break;
        }
        if (deadline.hasExpired())
            return Failure{Failure::Kind::timedOut,
                           QStringLiteral("another start of this program has not finished")};
        (void)::poll(nullptr, 0, pause);
    }
}

Result<InstanceToken> LinuxInstanceLock::acquire() {
    Result<FileDescriptor> opened = openLockFile(agentFile);
    if (!opened)
        return opened.failure();
    FileDescriptor file = std::move(opened).value();
    const QString path = folder_ + u'/' + agentFile;
    switch (tryLock(file)) {
    case Attempt::taken:
        return Failure{Failure::Kind::refused, QStringLiteral("another process is the agent")};
    case Attempt::failed:
        return systemFailure(errno, QStringLiteral("lock"), path);
    case Attempt::locked:
        break;
    }
    const QByteArray record =
        QByteArray::number(::getpid()) + ' ' + QByteArray::number(startTimeOf(::getpid())) + '\n';
    if (::ftruncate(file.get(), 0) != 0 ||
        ::pwrite(file.get(), record.constData(), static_cast<std::size_t>(record.size()), 0) !=
            record.size())
        return systemFailure(errno, QStringLiteral("write"), path);
    return tokenFor(std::move(file));
}

std::optional<ProcessIdentifier> LinuxInstanceLock::holder() const {
    const auto record = verifiedHolder(folder_ + u'/' + agentFile);
    if (!record)
        return std::nullopt;
    return ProcessIdentifier{record->pid};
}

Outcome LinuxInstanceLock::endHolder(platform::Termination termination) {
    const QString path = folder_ + u'/' + agentFile;
    const auto record = verifiedHolder(path);
    if (!record)
        return Failure{Failure::Kind::notFound,
                       QStringLiteral("no process is known to be the agent")};
    if (record->pid == ::getpid())
        return Failure{Failure::Kind::refused, QStringLiteral("the agent is this process")};
    const FileDescriptor process = openProcess(record->pid);
    if (!process)
        return systemFailure(errno, QStringLiteral("find process"), QString::number(record->pid));
    // The handle means one process for good; that it is the agent is only known from a second look.
    if (verifiedHolder(path) != record)
        return Failure{Failure::Kind::notFound, QStringLiteral("the agent has just ended")};
    const int signal = termination == platform::Termination::forced ? SIGKILL : SIGTERM;
    if (sendSignal(process, signal) != 0)
        return systemFailure(errno, QStringLiteral("end process"), QString::number(record->pid));
    return Done{};
}

} // namespace skipnest::linuxdesktop
