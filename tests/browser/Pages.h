// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <map>
#include <mutex>
#include <thread>

namespace skipnest::browser {

// Pages on this machine's loopback, for browsers under test. Each says what happens to it, which is
// how a test learns which tab a browser shows.
class Pages {
public:
    enum class Kind {
        plain,
        closable, // closes itself when told to
    };

    Pages();
    ~Pages();
    Pages(const Pages&) = delete;
    Pages& operator=(const Pages&) = delete;

    // Puts up a page and answers its address. Names are plain words, titles anything.
    QString put(const QString& name, const QString& title, Kind kind = Kind::plain);
    enum class Event { loaded, seen, gone }; // the last one as it begins to close
    // The pages that this happened to, in that order; one may be there twice.
    [[nodiscard]] QStringList heardOf(Event event) const;
    void close(const QString& name);

private:
    struct Page {
        QString title;
        Kind kind = Kind::plain;
    };

    void serve();
    // Empty: the answer comes later, from close().
    [[nodiscard]] QByteArray answer(const QString& path, int connection);

    int listener_ = -1;
    int wake_ = -1;
    int port_ = 0;
    mutable std::mutex mutex_; // for what follows
    std::map<QString, Page> pages_;
    std::map<QString, int> waiting_;       // connections of closable pages
    std::map<QString, QStringList> heard_; // by what was said
    bool ends_ = false;
    std::thread thread_;
};

} // namespace skipnest::browser
