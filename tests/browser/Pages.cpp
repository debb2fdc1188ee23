// SPDX-License-Identifier: Apache-2.0
#include "tests/browser/Pages.h"

#include <algorithm>
#include <array>
#include <netinet/in.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

namespace skipnest::browser {
namespace {

QByteArray reply(const QByteArray& status, const QByteArray& type, const QByteArray& body) {
    return "HTTP/1.1 " + status + "\r\nContent-Type: " + type +
           "; charset=utf-8\r\nConnection: close\r\nContent-Length: " +
           QByteArray::number(body.size()) + "\r\n\r\n" + body;
}

void send(int connection, const QByteArray& bytes) {
    (void)!::send(connection, bytes.constData(), static_cast<std::size_t>(bytes.size()),
                  MSG_NOSIGNAL);
    ::close(connection);
}

QByteArray document(const QString& name, const QString& title, bool isClosable) {
    QString script = QStringLiteral("const say = what => navigator.sendBeacon(`/say/${what}/%1`);"
                                    "const look = () => { if (document.visibilityState === "
                                    "'visible') say('seen'); };"
                                    "document.addEventListener('visibilitychange', look);"
                                    "addEventListener('focus', look);"
                                    "look(); say('loaded');")
                         .arg(name);
    if (isClosable)
        script += QStringLiteral("fetch('/close/%1').then(() => fetch('/say/gone/%1'))"
                                 ".then(() => window.close());")
                      .arg(name);
    return QStringLiteral("<!doctype html><meta charset=utf-8><title>%1</title><body>"
                          "<script>%2</script>")
        .arg(title.toHtmlEscaped(), script)
        .toUtf8();
}

} // namespace

Pages::Pages() {
    listener_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    wake_ = ::eventfd(0, EFD_CLOEXEC);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    if (::bind(listener_, reinterpret_cast<const sockaddr*>(&address), size) != 0 ||
        ::listen(listener_, SOMAXCONN) != 0 ||
        ::getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size) != 0)
        qFatal("no port on the loopback");
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { serve(); });
}

Pages::~Pages() {
    {
        const std::lock_guard lock(mutex_);
        ends_ = true;
    }
    constexpr std::uint64_t one = 1;
    (void)!::write(wake_, &one, sizeof one);
    thread_.join();
    for (const auto& [name, connection] : waiting_)
        ::close(connection);
    ::close(listener_);
    ::close(wake_);
}

QString Pages::put(const QString& name, const QString& title, Kind kind) {
    const std::lock_guard lock(mutex_);
    pages_[name] = {title, kind};
    return QStringLiteral("http://127.0.0.1:%1/%2?secret=%2").arg(port_).arg(name);
}

QStringList Pages::heardOf(Event event) const {
    const std::lock_guard lock(mutex_);
    constexpr std::array words{"loaded", "seen", "gone"};
    const auto heard = heard_.find(QString::fromLatin1(words.at(static_cast<std::size_t>(event))));
    return heard == heard_.end() ? QStringList() : heard->second;
}

void Pages::close(const QString& name) {
    const std::lock_guard lock(mutex_);
    const auto waiting = waiting_.extract(name);
    if (!waiting.empty())
        send(waiting.mapped(), reply("200 OK", "text/plain", "close"));
}

void Pages::serve() {
    std::map<int, QByteArray> open; // what each connection has sent
    for (;;) {
        std::vector<pollfd> ends{{wake_, POLLIN, 0}, {listener_, POLLIN, 0}};
        for (const auto& [connection, request] : open)
            ends.push_back({connection, POLLIN, 0});
        ::poll(ends.data(), ends.size(), -1);
        {
            const std::lock_guard lock(mutex_);
            if (ends_)
                break;
        }
        if (ends[1].revents != 0)
            open.emplace(::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC), QByteArray());
        for (std::size_t i = 2; i < ends.size(); ++i) {
            if (ends[i].revents == 0)
                continue;
            const int connection = ends[i].fd;
            std::array<char, 4096> bytes;
            const ssize_t count = ::read(connection, bytes.data(), bytes.size());
            QByteArray& request = open[connection];
            if (count > 0)
                request.append(bytes.data(), count);
            if (count > 0 && !request.contains("\r\n\r\n"))
                continue;
            const QString path =
                QString::fromLatin1(request.split(' ').value(1)).section(u'?', 0, 0).mid(1);
            open.erase(connection);
            if (count <= 0) {
                ::close(connection);
                continue;
            }
            if (const QByteArray sent = answer(path, connection); !sent.isEmpty())
                send(connection, sent);
        }
    }
    for (const auto& [connection, request] : open)
        ::close(connection);
}

QByteArray Pages::answer(const QString& path, int connection) {
    const std::lock_guard lock(mutex_);
    const QString name = path.section(u'/', 1);
    if (path.startsWith(u"say/")) {
        heard_[name.section(u'/', 0, 0)].append(name.section(u'/', 1));
        return reply("204 No Content", "text/plain", {});
    }
    if (path.startsWith(u"close/")) {
        waiting_[name] = connection;
        return {};
    }
    const auto page = pages_.find(path);
    if (page == pages_.end())
        return reply("404 Not Found", "text/plain", "none");
    return reply("200 OK", "text/html",
                 document(path, page->second.title, page->second.kind == Kind::closable));
}

} // namespace skipnest::browser
