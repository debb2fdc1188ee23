// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/browser/TabsServer.h"

#include "platform/BrowserExtension.h"
#include "platform/linux/SocketPeer.h"
#include "platform/linux/SystemError.h"
#include "platform/linux/crash/AlternateStack.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace skipnest::linuxdesktop {

using platform::Duration;
using platform::Failure;
using platform::Outcome;

namespace {

// Sixteen profiles at once are nobody's; more than that is a fault.
constexpr std::size_t mostConnections = 16;
// A host that takes nothing any more is let go with this much waiting for it.
constexpr qsizetype mostOutgoing = 1 << 20;
constexpr qsizetype chunk = 65'536;
// Until accepting is tried again when this process has no descriptor left.
constexpr int pauseWithoutDescriptors = 1'000; // ms

FileDescriptor newSignal() {
    return FileDescriptor(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
}

void raise(const FileDescriptor& signal) {
    constexpr std::uint64_t one = 1;
    (void)!::write(signal.get(), &one, sizeof one);
}

void lower(const FileDescriptor& signal) {
    std::uint64_t count = 0;
    (void)!::read(signal.get(), &count, sizeof count);
}

QByteArray framed(const QJsonObject& message) {
    return platform::framedMessage(QJsonDocument(message).toJson(QJsonDocument::Compact));
}

std::int64_t peerPid(int socket) {
    ucred peer{};
    socklen_t size = sizeof peer;
    return ::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 ? peer.pid : 0;
}

} // namespace

TabsServer::TabsServer(const platform::Scheduler& clock, Identify identify, Changed changed)
    : clock_(clock), identify_(std::move(identify)), changed_(std::move(changed)) {}

TabsServer::~TabsServer() {
    if (!thread_.joinable())
        return;
    {
        const std::lock_guard lock(mutex_);
        ends_ = true;
    }
    raise(wakeThread_);
    thread_.join();
}

Outcome TabsServer::listen(const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (static_cast<std::size_t>(name.size()) >= sizeof address.sun_path)
        return Failure{Failure::Kind::tooLarge, path + QStringLiteral(": too long for a socket")};
    std::memcpy(address.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
    listener_ = FileDescriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    wakeThread_ = newSignal();
    wakeMain_ = newSignal();
    ::unlink(name.constData());
    // Before it has a name: Linux takes the file's mode from here, so it is never open to others.
    ::fchmod(listener_.get(), S_IRUSR | S_IWUSR);
    if (::bind(listener_.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        ::listen(listener_.get(), static_cast<int>(mostConnections)) != 0)
        return systemFailure(errno, QStringLiteral("listen at"), path);
    // Signals are the main thread's.
    sigset_t all;
    sigset_t before;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before);
    thread_ = std::thread([this]() noexcept { serve(); });
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return platform::Done{};
}

std::vector<TabsServer::ConnectionId> TabsServer::connections(const QString& browser) const {
    const std::lock_guard lock(mutex_);
    std::vector<ConnectionId> found;
    for (auto known = greeted_.rbegin(); known != greeted_.rend(); ++known) {
        if (known->browser == browser)
            found.push_back(known->id);
    }
    return found;
}

QStringList TabsServer::connectedBrowsers() const {
    const std::lock_guard lock(mutex_);
    QStringList browsers;
    for (const Greeted& known : greeted_)
        browsers.append(known.browser);
    browsers.removeDuplicates();
    return browsers;
}

std::vector<TabsServer::Answer> TabsServer::ask(const std::vector<Question>& questions,
                                                Duration budget) {
    const platform::Instant deadline = clock_.now() + budget;
    std::vector<std::int64_t> numbers;
    {
        const std::lock_guard lock(mutex_);
        for (const Question& question : questions) {
            const std::int64_t number = ++lastRequest_;
            numbers.push_back(number);
            const bool isHere =
                std::ranges::find(greeted_, question.connection, &Greeted::id) != greeted_.end();
            pending_[number] = {question.connection,
                                {isHere ? Answer::State::late : Answer::State::gone, {}}};
            QJsonObject request = question.request;
            request.insert(QStringLiteral("id"), qint64(number));
            if (isHere)
                outgoing_.push_back({question.connection, framed(request)});
        }
    }
    raise(wakeThread_);
    const auto settled = [this, &numbers] {
        const std::lock_guard lock(mutex_);
        return std::ranges::none_of(numbers, [this](std::int64_t number) {
            return pending_[number].answer.state == Answer::State::late;
        });
    };
    while (!settled()) {
        const Duration left = deadline - clock_.now();
        if (left <= Duration::zero())
            break;
        const auto seconds = std::chrono::floor<std::chrono::seconds>(left);
        const timespec wait{seconds.count(), static_cast<long>((left - seconds).count())};
        pollfd signal{wakeMain_.get(), POLLIN, 0};
        if (::ppoll(&signal, 1, &wait, nullptr) > 0)
            lower(wakeMain_);
    }
    std::vector<Answer> answers;
    const std::lock_guard lock(mutex_);
    for (const std::int64_t number : numbers) {
        const auto pending = pending_.extract(number);
        answers.push_back(pending.mapped().answer);
    }
    return answers;
}

void TabsServer::serve() {
    ensureAlternateStack();
    for (;;) {
        // A connection that cannot be accepted would be reported again and again.
        std::vector<pollfd> ends{{wakeThread_.get(), POLLIN, 0},
                                 {isOutOfDescriptors_ ? -1 : listener_.get(), POLLIN, 0}};
        for (const auto& connection : connections_)
            ends.push_back(
                {connection->socket.get(),
                 static_cast<short>(POLLIN | (connection->outgoing.isEmpty() ? 0 : POLLOUT)), 0});
        const int patience = isOutOfDescriptors_ ? pauseWithoutDescriptors : -1;
        if (::poll(ends.data(), ends.size(), patience) < 0 && errno != EINTR)
            return;
        isOutOfDescriptors_ = false;
        lower(wakeThread_);
        {
            const std::lock_guard lock(mutex_);
            if (ends_)
                return;
        }
        for (std::size_t i = 2; i < ends.size(); ++i) {
            if ((ends[i].revents & ~POLLOUT) != 0)
                read(*connections_[i - 2]);
        }
        send();
        std::erase_if(connections_, [this](const auto& connection) {
            if (connection->broken)
                forget(*connection);
            return connection->broken;
        });
        if (ends[1].revents != 0)
            accept();
    }
}

void TabsServer::accept() {
    FileDescriptor socket(
        ::accept4(listener_.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    isOutOfDescriptors_ = !socket && (errno == EMFILE || errno == ENFILE);
    if (!socket || !SocketPeer().isSameUser(socket.get()) || connections_.size() >= mostConnections)
        return;
    QString browser = identify_(peerPid(socket.get()));
    connections_.push_back(std::make_unique<Connection>(
        Connection{++lastConnection_,
                   std::move(socket),
                   std::move(browser),
                   false,
                   platform::MessageReader(platform::longestTabsAnswer),
                   {},
                   false}));
}

void TabsServer::send() {
    {
        const std::lock_guard lock(mutex_);
        for (const Outgoing& waiting : outgoing_) {
            for (const auto& connection : connections_) {
                if (connection->id == waiting.connection)
                    connection->outgoing += waiting.bytes;
            }
        }
        outgoing_.clear();
    }
    for (const auto& connection : connections_) {
        QByteArray& bytes = connection->outgoing;
        if (connection->broken || bytes.isEmpty())
            continue;
        const ssize_t count = ::send(connection->socket.get(), bytes.constData(),
                                     static_cast<std::size_t>(bytes.size()), MSG_NOSIGNAL);
        if (count > 0)
            bytes.remove(0, count);
        else if (errno != EAGAIN && errno != EINTR)
            connection->broken = true;
        if (bytes.size() > mostOutgoing)
            connection->broken = true;
    }
}

void TabsServer::read(Connection& connection) {
    std::array<char, chunk> bytes;
    const ssize_t count = ::read(connection.socket.get(), bytes.data(), bytes.size());
    if (count > 0)
        connection.reader.append(bytes.data(), count);
    else if (count == 0 || (errno != EAGAIN && errno != EINTR))
        connection.broken = true;
    while (const auto message = connection.reader.next())
        handle(connection, *message);
    if (connection.reader.isBroken())
        connection.broken = true;
}

void TabsServer::handle(Connection& connection, const QByteArray& message) {
    const QJsonDocument document = QJsonDocument::fromJson(message);
    if (!document.isObject()) {
        connection.broken = true;
        return;
    }
    const QJsonObject object = document.object();
    if (!connection.greeted)
        return greet(connection, object);
    const std::lock_guard lock(mutex_);
    const auto pending = pending_.find(object.value(u"id").toInteger());
    // Late, or made up: another browser's number is not this one's to answer.
    if (pending == pending_.end() || pending->second.connection != connection.id)
        return;
    pending->second.answer = {Answer::State::given, object};
    raise(wakeMain_);
}

void TabsServer::greet(Connection& connection, const QJsonObject& message) {
    if (message.contains(u"who")) {
        const QJsonArray browsers = QJsonArray::fromStringList(connectedBrowsers());
        connection.outgoing += framed({{QStringLiteral("connected"), browsers}});
        return;
    }
    if (!message.contains(u"hello") || connection.browser.isEmpty()) {
        connection.broken = true;
        return;
    }
    connection.greeted = true;
    connection.outgoing += framed({{QStringLiteral("welcome"), 1}});
    {
        const std::lock_guard lock(mutex_);
        greeted_.push_back({connection.id, connection.browser});
    }
    changed_();
}

void TabsServer::forget(const Connection& connection) {
    {
        const std::lock_guard lock(mutex_);
        std::erase_if(greeted_, [&](const Greeted& known) { return known.id == connection.id; });
        for (auto& [number, pending] : pending_) {
            if (pending.connection == connection.id && pending.answer.state == Answer::State::late)
                pending.answer.state = Answer::State::gone;
        }
    }
    raise(wakeMain_);
    if (connection.greeted)
        changed_();
}

} // namespace skipnest::linuxdesktop
