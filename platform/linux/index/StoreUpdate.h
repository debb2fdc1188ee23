// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/linux/index/FolderScan.h"
#include "platform/linux/index/NameStore.h"

#include <functional>
#include <optional>
#include <set>
#include <string>

namespace skipnest::linuxdesktop {

// Brings a store up to date with what some of its folders hold now.
struct StoreUpdate {
    FolderReader& reader;
    FolderScan::Entered entered;                  // a new folder is about to be read
    std::function<void(const std::string&)> left; // a folder has gone from this path
    std::function<bool()> isStopping;

    // Nothing where the folders hold what the store says. Folders that the store does not know are
    // left to the one above them. Those that `arrived` are read with everything below, even where
    // the store has a folder of that path.
    [[nodiscard]] std::optional<NameStore> reread(const NameStore& store,
                                                  const std::set<std::string>& folders,
                                                  const std::set<std::string>& arrived) const;
};

} // namespace skipnest::linuxdesktop
