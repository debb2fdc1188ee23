// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/FolderWatch.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSocketNotifier>

#include <array>
#include <cstring>
#include <sys/inotify.h>
#include <unistd.h>

namespace skipnest::linuxdesktop {
namespace {

constexpr std::uint32_t contentMask = IN_CREATE | IN_CLOSE_WRITE | IN_DELETE | IN_MOVED_FROM |
                                      IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF;
constexpr std::uint32_t arrivalMask = IN_CREATE | IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF;

} // namespace

FolderWatch::FolderWatch(std::function<void()> changed) : changed_(std::move(changed)) {}

FolderWatch::~FolderWatch() {
    notifier_.reset();
    if (descriptor_ >= 0)
        ::close(descriptor_);
}

void FolderWatch::watch(const QStringList& folders) {
    // A fresh instance drops every old watch and what was queued for it.
    notifier_.reset();
    if (descriptor_ >= 0)
        ::close(descriptor_);
    awaited_.clear();
    descriptor_ = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (descriptor_ < 0)
        return;
    for (const QString& folder : folders) {
        if (QFileInfo(folder).isDir())
            watchTree(folder);
        else
            awaitFolder(folder);
    }
    notifier_ = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { readEvents(); });
}

void FolderWatch::watchTree(const QString& folder) {
    const auto add = [this](const QString& path) {
        const int id =
            ::inotify_add_watch(descriptor_, QFile::encodeName(path).constData(), contentMask);
        if (id >= 0)
            awaited_.insert(id, QByteArray());
    };
    add(folder);
    QDirIterator below(folder, QDir::Dirs | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (below.hasNext())
        add(below.next());
}

void FolderWatch::awaitFolder(const QString& folder) {
    QString missing = folder;
    QString parent = QFileInfo(missing).path();
    while (!QFileInfo(parent).isDir() && parent != missing) {
        missing = parent;
        parent = QFileInfo(missing).path();
    }
    // IN_MASK_ADD: the same parent may hold a watched folder as well.
    const int id = ::inotify_add_watch(descriptor_, QFile::encodeName(parent).constData(),
                                       arrivalMask | IN_MASK_ADD);
    if (id >= 0 && !awaited_.contains(id))
        awaited_.insert(id, QFile::encodeName(QFileInfo(missing).fileName()));
}

void FolderWatch::readEvents() {
    alignas(inotify_event) std::array<char, 8192> buffer;
    bool relevant = false;
    for (;;) {
        const ssize_t length = ::read(descriptor_, buffer.data(), buffer.size());
        if (length <= 0)
            break;
        for (ssize_t at = 0; at < length;) {
            inotify_event event{};
            std::memcpy(&event, buffer.data() + at, sizeof event);
            const char* name = buffer.data() + at + sizeof event;
            const QByteArray awaited = awaited_.value(event.wd);
            relevant = relevant || awaited.isEmpty() || event.len == 0 || awaited == name;
            at += static_cast<ssize_t>(sizeof event + event.len);
        }
    }
    if (relevant)
        changed_();
}

} // namespace skipnest::linuxdesktop
