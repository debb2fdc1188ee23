// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/FileIndex.h"
#include "platform/linux/index/IndexFolders.h"

#include <string>
#include <vector>

namespace skipnest::linuxdesktop {

// Something found by other names than its file's: an application, a user folder, a whole drive.
struct Title {
    platform::IndexedFile item;
    std::vector<std::string> folded; // every name it is found by, the displayed one first

    bool operator==(const Title&) const = default;
};

// Applications meant for menus, by their name in the person's language and by the one their entry
// has without a language. Reads the disk.
[[nodiscard]] std::vector<Title> applicationTitles(const QStringList& folders);

// User folders that exist, by their name on the disk, in the person's language, in English and in
// German; then the roots by their last part. Of two with one path the first is kept.
[[nodiscard]] std::vector<Title> folderTitles(const std::vector<UserFolder>& userFolders,
                                              const QStringList& roots);

} // namespace skipnest::linuxdesktop
