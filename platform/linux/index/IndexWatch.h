// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/linux/FileDescriptor.h"

#include <set>
#include <string>
#include <unordered_map>

namespace skipnest::linuxdesktop {

// Tells which of the watched folders got other entries. Changes of hidden names do not count. One
// thread; costs nothing while nothing changes.
class IndexWatch {
public:
    explicit IndexWatch(int mostFolders);

    // Becomes readable when there is something to take; -1 where the kernel allows no watching.
    [[nodiscard]] int descriptor() const { return inotify_.get(); }

    // Beyond the limit, and beyond what the kernel allows, nothing happens. Watching a folder again
    // renews its path.
    void watch(const std::string& folder);
    [[nodiscard]] bool isFull() const { return paths_.size() >= mostFolders_; }
    // Stops for the folder and what lies below: it is gone, or has another path now.
    void forget(const std::string& folder);

    // The kernel refused a watch that the limit here allowed.
    [[nodiscard]] bool wasRefused() const { return wasRefused_; }

    struct Changes {
        std::set<std::string> folders;
        // Folders that came into one of those. What had the same path before was another one.
        std::set<std::string> arrived;
        bool wereLost = false; // more came than the kernel keeps: any folder may have changed

        void add(Changes other);
    };
    [[nodiscard]] Changes take();

private:
    std::size_t mostFolders_;
    FileDescriptor inotify_;
    std::unordered_map<int, std::string> paths_;
    bool wasRefused_ = false;
};

} // namespace skipnest::linuxdesktop
