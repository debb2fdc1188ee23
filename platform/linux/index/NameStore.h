// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/FileIndex.h"
#include "platform/linux/index/NameTable.h"
#include "platform/linux/index/Titles.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace skipnest::linuxdesktop {

// All names at one moment: the large table of the last scan, a small one of what came since, what
// of the large one has gone, and the titles. Unchanging and shared, so that a search may run on any
// thread while the next store is made.
//
// Ids below the size of the large table are its own, those above belong to the small one. The
// children of what has gone are not marked: whoever lists a name asks isAlive().
class NameStore {
public:
    using Id = NameTable::Id;
    using Gone = std::vector<bool>; // by id of the large table

    NameStore() = default;
    explicit NameStore(NameTable base) : base_(std::move(base)) {}

    [[nodiscard]] NameStore withTitles(std::vector<Title> titles) const;
    [[nodiscard]] NameStore withChanges(NameTable recent, Gone gone) const;

    [[nodiscard]] const NameTable& base() const { return base_; }
    [[nodiscard]] const NameTable& recent() const { return recent_; }
    [[nodiscard]] Gone gone() const { return gone_ ? *gone_ : Gone(base_.size()); }
    [[nodiscard]] std::int64_t size() const;

    // The best items in the order that platform::FileIndex promises.
    [[nodiscard]] std::vector<platform::IndexedFile> search(const platform::FileQuery& query) const;

    [[nodiscard]] std::string_view name(Id id) const;
    [[nodiscard]] bool isFolder(Id id) const;
    [[nodiscard]] Id parent(Id id) const;
    [[nodiscard]] bool isAlive(Id id) const;
    [[nodiscard]] std::string path(Id id) const;
    // The folder or root of this path, if it is listed and alive.
    [[nodiscard]] std::optional<Id> find(std::string_view path) const;
    // By itself; what it lies in is not looked at.
    [[nodiscard]] bool isGone(Id id) const { return id < base_.size() && gone_ && (*gone_)[id]; }

private:
    struct Candidate;
    class Gathering;
    [[nodiscard]] std::optional<Id> child(Id folder, std::string_view name) const;

    NameTable base_;
    NameTable recent_;
    std::shared_ptr<const Gone> gone_;
    std::int64_t goneCount_ = 0;
    std::shared_ptr<const std::vector<Title>> titles_;
};

} // namespace skipnest::linuxdesktop
