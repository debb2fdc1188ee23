// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/linux/index/FolderReader.h"

#include <deque>
#include <functional>
#include <string>

namespace skipnest::linuxdesktop {

// Reads folders with everything below into a builder, one folder a step, from the top downwards:
// the worker looks at its other work in between.
class FolderScan {
public:
    using Id = NameTableBuilder::Id;
    // Told of every folder before it is read; what changes from then on is to be noticed.
    using Entered = std::function<void(const std::string& path)>;

    FolderScan(NameTableBuilder& builder, FolderReader& reader, Entered entered)
        : builder_(builder), reader_(reader), entered_(std::move(entered)) {}

    void add(std::string path, Id folder) { waiting_.push_back({std::move(path), folder}); }
    // Reads the next folder; false when there was none.
    bool step();

private:
    struct Folder {
        std::string path;
        Id id;
    };
    NameTableBuilder& builder_;
    FolderReader& reader_;
    Entered entered_;
    std::deque<Folder> waiting_;
};

} // namespace skipnest::linuxdesktop
