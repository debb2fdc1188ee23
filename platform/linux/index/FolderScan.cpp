// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/index/FolderScan.h"

#include <utility>

namespace skipnest::linuxdesktop {

bool FolderScan::step() {
    if (waiting_.empty() || builder_.isFull())
        return false;
    const Folder folder = std::move(waiting_.front());
    waiting_.pop_front();
    entered_(folder.path);
    const auto contents = reader_.read(folder.path);
    if (!contents)
        return true;
    builder_.setTime(folder.id, contents->time);
    for (const FolderEntry& entry : contents->entries) {
        if (builder_.isFull())
            break;
        const Id id = builder_.add(folder.id, entry.name, entry.kind);
        if (entry.isEntered)
            waiting_.push_back({inside(folder.path, entry.name), id});
    }
    return true;
}

} // namespace skipnest::linuxdesktop
