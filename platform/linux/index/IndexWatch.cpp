// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/index/IndexWatch.h"

#include "platform/linux/index/FolderReader.h"

#include <array>
#include <cerrno>
#include <cstring>

#include <sys/inotify.h>
#include <unistd.h>

namespace skipnest::linuxdesktop {
namespace {

// Names only: what is written into a file does not matter.
constexpr std::uint32_t mask = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_ONLYDIR |
                               IN_EXCL_UNLINK | IN_DONT_FOLLOW;

} // namespace

IndexWatch::IndexWatch(int mostFolders)
    : mostFolders_(static_cast<std::size_t>(mostFolders)),
      inotify_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)), wasRefused_(!inotify_) {}

void IndexWatch::watch(const std::string& folder) {
    if (wasRefused_ || isFull())
        return;
    const int id = ::inotify_add_watch(inotify_.get(), folder.c_str(), mask);
    if (id >= 0)
        paths_[id] = folder;
    else if (errno == ENOSPC || errno == ENOMEM)
        wasRefused_ = true;
}

void IndexWatch::forget(const std::string& folder) {
    std::erase_if(paths_, [&](const auto& watched) {
        const std::string& path = watched.second;
        if (!path.starts_with(folder) ||
            (path.size() > folder.size() && path[folder.size()] != '/'))
            return false;
        (void)::inotify_rm_watch(inotify_.get(), watched.first);
        return true;
    });
}

void IndexWatch::Changes::add(Changes other) {
    folders.merge(other.folders);
    arrived.merge(other.arrived);
    wereLost = wereLost || other.wereLost;
}

IndexWatch::Changes IndexWatch::take() {
    Changes changes;
    alignas(inotify_event) std::array<char, 16384> buffer;
    for (;;) {
        const ssize_t length = ::read(inotify_.get(), buffer.data(), buffer.size());
        if (length <= 0)
            return changes;
        for (ssize_t at = 0; at < length;) {
            inotify_event event{};
            std::memcpy(&event, buffer.data() + at, sizeof event);
            const char* const name = buffer.data() + at + sizeof event;
            at += static_cast<ssize_t>(sizeof event + event.len);
            if ((event.mask & IN_Q_OVERFLOW) != 0)
                changes.wereLost = true;
            const auto watched = paths_.find(event.wd);
            if (watched == paths_.end())
                continue;
            if ((event.mask & IN_IGNORED) != 0) {
                paths_.erase(watched);
            } else if (event.len > 0 && !FolderReader::isLeftOut(name)) {
                changes.folders.insert(watched->second);
                if ((event.mask & IN_ISDIR) != 0 && (event.mask & (IN_CREATE | IN_MOVED_TO)) != 0)
                    changes.arrived.insert(inside(watched->second, name));
            }
        }
    }
}

} // namespace skipnest::linuxdesktop
