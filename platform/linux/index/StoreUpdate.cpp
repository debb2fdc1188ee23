// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/index/StoreUpdate.h"

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace skipnest::linuxdesktop {
namespace {

using Id = NameStore::Id;
using Kind = NameTableBuilder::Kind;

// The folders that are read again, with what the store knows to lie in them.
class KnownChildren {
public:
    KnownChildren(const NameStore& store, const std::set<std::string>& folders)
        : store_(store), isAsked_(store.base().size() + std::size_t{store.recent().size()}),
          isRootAsked_(NameTable::mostRoots + 1) {
        for (const std::string& folder : folders) {
            if (const auto id = store.find(folder)) {
                asked_.emplace(*id, folder);
                flag(*id) = true;
            }
        }
        if (asked_.empty())
            return;
        gather(store.base().parents(), 0);
        gather(store.recent().parents(), store.base().size());
    }

    [[nodiscard]] const std::map<Id, std::string>& folders() const { return asked_; }
    [[nodiscard]] const std::vector<Id>& of(Id folder) { return children_[folder]; }

private:
    std::vector<bool>::reference flag(Id id) {
        return id >= NameTable::firstRoot ? isRootAsked_[id - NameTable::firstRoot] : isAsked_[id];
    }

    // One look at every name: the tables keep no list of children.
    void gather(std::span<const Id> parents, Id firstId) {
        for (Id place = 0; place < parents.size(); ++place) {
            if (flag(parents[place]) && !store_.isGone(firstId + place))
                children_[parents[place]].push_back(firstId + place);
        }
    }

    const NameStore& store_;
    std::map<Id, std::string> asked_;
    std::map<Id, std::vector<Id>> children_;
    std::vector<bool> isAsked_;
    std::vector<bool> isRootAsked_;
};

struct Added {
    Id folder;
    std::string path; // of the folder
    FolderEntry entry;
};

// What has to change in a store, and the store that comes of it.
class Difference {
public:
    explicit Difference(const NameStore& store)
        : store_(store), gone_(store.gone()), isRemoved_(store.recent().size()) {}

    [[nodiscard]] bool isEmpty() const { return added_.empty() && !hasRemoved_; }

    void compare(Id folder, const std::string& path, const std::vector<Id>& known,
                 std::vector<FolderEntry> entries, const std::set<std::string>& arrived) {
        std::map<std::pair<std::string_view, bool>, Id> knownByName;
        for (const Id id : known)
            knownByName.emplace(std::pair(store_.name(id), store_.isFolder(id)), id);
        for (FolderEntry& entry : entries) {
            const bool isSame = !entry.isEntered || !arrived.contains(inside(path, entry.name));
            if (isSame && knownByName.erase({entry.name, entry.kind == Kind::folder}) != 0)
                continue;
            added_.push_back({folder, path, std::move(entry)});
        }
        for (const auto& [what, id] : knownByName) {
            if (what.second)
                left_.push_back(inside(path, what.first));
            if (id < base())
                gone_[id] = true;
            else
                isRemoved_[id - base()] = true;
            hasRemoved_ = true;
        }
    }

    [[nodiscard]] NameStore applied(const StoreUpdate& update) const {
        // Before new ones are watched: a renamed folder keeps its watch under the other path.
        for (const std::string& path : left_)
            update.left(path);
        const NameTable& recent = store_.recent();
        std::vector<Id> kept(recent.size()); // their provisional ids
        Id count = 0;
        for (Id place = 0; place < recent.size(); ++place)
            kept[place] = isAlive(base() + place) ? base() + count++ : base();
        const auto now = [&](Id id) {
            return id < base() || id >= NameTable::firstRoot ? id : kept[id - base()];
        };
        NameTableBuilder builder(base());
        for (Id place = 0; place < recent.size(); ++place) {
            if (isAlive(base() + place))
                builder.add(now(recent.parent(place)), recent.name(place),
                            recent.isFolder(place) ? Kind::folder : Kind::file);
        }
        FolderScan scan(builder, update.reader, update.entered);
        for (const Added& added : added_) {
            const Id id = builder.add(now(added.folder), added.entry.name, added.entry.kind);
            if (added.entry.isEntered)
                scan.add(inside(added.path, added.entry.name), id);
        }
        while (!update.isStopping() && scan.step()) {
        }
        return store_.withChanges(builder.build(), gone_);
    }

private:
    [[nodiscard]] Id base() const { return store_.base().size(); }

    [[nodiscard]] bool isAlive(Id id) const {
        constexpr int deepest = 2048; // a damaged table may lead in circles
        for (int depth = 0; id < NameTable::firstRoot && depth < deepest; ++depth) {
            if (id < base() ? gone_[id] : isRemoved_[id - base()])
                return false;
            id = store_.parent(id);
        }
        return true;
    }

    const NameStore& store_;
    NameStore::Gone gone_;
    std::vector<bool> isRemoved_;
    std::vector<Added> added_;
    std::vector<std::string> left_;
    bool hasRemoved_ = false;
};

} // namespace

std::optional<NameStore> StoreUpdate::reread(const NameStore& store,
                                             const std::set<std::string>& folders,
                                             const std::set<std::string>& arrived) const {
    KnownChildren known(store, folders);
    Difference difference(store);
    for (const auto& [id, path] : known.folders()) {
        if (auto contents = reader.read(path))
            difference.compare(id, path, known.of(id), std::move(contents->entries), arrived);
    }
    if (difference.isEmpty())
        return std::nullopt;
    return difference.applied(*this);
}

} // namespace skipnest::linuxdesktop
