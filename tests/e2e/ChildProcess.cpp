// SPDX-License-Identifier: Apache-2.0
#include "tests/e2e/ChildProcess.h"

#include "tests/e2e/Waiting.h"

#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <utility>
#include <vector>

namespace skipnest::e2e {
namespace {

std::vector<QByteArray> encoded(const QStringList& texts) {
    std::vector<QByteArray> result;
    for (const QString& text : texts)
        result.push_back(text.toLocal8Bit());
    return result;
}

std::vector<char*> pointers(std::vector<QByteArray>& texts) {
    std::vector<char*> result;
    for (QByteArray& text : texts)
        result.push_back(text.data());
    result.push_back(nullptr);
    return result;
}

QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

std::vector<pid_t> ownChildren() {
    std::vector<pid_t> result;
    const QString path = QStringLiteral("/proc/self/task/%1/children").arg(getpid());
    for (const QByteArray& pid : contents(path).simplified().split(' ')) {
        if (!pid.isEmpty())
            result.push_back(static_cast<pid_t>(pid.toInt()));
    }
    return result;
}

} // namespace

ChildProcess ChildProcess::start(const Launch& launch) {
    auto arguments = encoded(launch.command);
    auto environment = encoded(launch.environment);
    const auto argumentPointers = pointers(arguments);
    const auto environmentPointers = pointers(environment);
    const QByteArray outputPath =
        launch.outputPath.isEmpty() ? QByteArray("/dev/null") : launch.outputPath.toLocal8Bit();
    const QByteArray errorPath = launch.errorPath.toLocal8Bit();
    const QByteArray folder = launch.folder.toLocal8Bit();

    ChildProcess child;
    child.pid_ = fork();
    if (child.pid_ != 0)
        return child;

    prctl(PR_SET_PDEATHSIG, SIGKILL);
    constexpr int flags = O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC;
    const int input = open("/dev/null", O_RDONLY | O_CLOEXEC);
    const int output = open(outputPath.constData(), flags, 0600);
    const int errors = errorPath.isEmpty() ? output : open(errorPath.constData(), flags, 0600);
    dup2(input, STDIN_FILENO);
    dup2(output, STDOUT_FILENO);
    dup2(errors, STDERR_FILENO);
    if (launch.keptDescriptor >= 0)
        fcntl(launch.keptDescriptor, F_SETFD, 0);
    if (!folder.isEmpty() && chdir(folder.constData()) != 0)
        _exit(127);
    execvpe(argumentPointers[0], argumentPointers.data(), environmentPointers.data());
    _exit(127);
}

ChildProcess::~ChildProcess() {
    end();
}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept
    : pid_(std::exchange(other.pid_, -1)), status_(std::exchange(other.status_, std::nullopt)) {}

ChildProcess& ChildProcess::operator=(ChildProcess&& other) noexcept {
    if (this != &other) {
        end();
        pid_ = std::exchange(other.pid_, -1);
        status_ = std::exchange(other.status_, std::nullopt);
    }
    return *this;
}

bool ChildProcess::running() {
    return pid_ > 0 && !waitStatus();
}

std::optional<int> ChildProcess::waitStatus() {
    int status = 0;
    if (pid_ > 0 && !status_ && waitpid(pid_, &status, WNOHANG) == pid_)
        status_ = status;
    return status_;
}

bool ChildProcess::ends(std::chrono::milliseconds limit) {
    return eventually([this] { return !running(); }, limit);
}

void ChildProcess::send(int signal) {
    if (running())
        kill(pid_, signal);
}

void ChildProcess::end() {
    send(SIGTERM);
    if (!ends(std::chrono::seconds(1))) {
        send(SIGKILL);
        (void)ends(patience);
    }
}

Finished run(const QStringList& command, const QStringList& environment,
             std::chrono::milliseconds limit) {
    const QTemporaryDir folder;
    const QString output = folder.filePath(QStringLiteral("output"));
    const QString errors = folder.filePath(QStringLiteral("errors"));
    ChildProcess child = ChildProcess::start({command, environment, output, errors});
    Finished finished;
    if (child.ends(limit) && child.waitStatus() && WIFEXITED(*child.waitStatus()))
        finished.exitCode = WEXITSTATUS(*child.waitStatus());
    finished.output = contents(output);
    finished.errors = contents(errors);
    return finished;
}

void adoptOrphans() {
    prctl(PR_SET_CHILD_SUBREAPER, 1);
}

void endStrays() {
    const bool allGone = eventually(
        [] {
            for (const pid_t pid : ownChildren()) {
                kill(pid, SIGKILL);
                waitpid(pid, nullptr, 0);
            }
            return ownChildren().empty();
        },
        patience);
    (void)allGone;
}

} // namespace skipnest::e2e
