// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/DesktopEntryIndex.h"

#include <algorithm>
#include <utility>

namespace skipnest::linuxdesktop {

DesktopEntryIndex::DesktopEntryIndex(std::vector<DesktopEntry> entries) {
    entries_.reserve(entries.size());
    for (DesktopEntry& entry : entries)
        add(std::move(entry));
}

void DesktopEntryIndex::add(DesktopEntry entry) {
    if (byPath_.contains(entry.path))
        return;
    const auto kept = std::make_shared<const DesktopEntry>(std::move(entry));
    entries_.push_back(kept);
    byPath_.insert(kept->path, kept.get());
    insert(byId_, kept->id, kept.get());
    // Snaps are called "snap_application"; their windows only know the application.
    if (const qsizetype underscore = kept->id.indexOf(u'_'); underscore > 0)
        insert(byId_, kept->id.mid(underscore + 1), kept.get());
    insert(byWmClass_, kept->startupWmClass, kept.get());
    for (const QString& program : kept->programs)
        insert(byProgram_, program, kept.get());
}

void DesktopEntryIndex::remove(const QString& path) {
    const DesktopEntry* entry = byPath_.take(path);
    if (entry == nullptr)
        return;
    for (Keys* keys : {&byId_, &byWmClass_, &byProgram_}) {
        for (Entries& entries : *keys)
            std::erase(entries, entry);
    }
    std::erase_if(entries_, [entry](const auto& kept) { return kept.get() == entry; });
}

const DesktopEntry* DesktopEntryIndex::withPath(const QString& path) const {
    return byPath_.value(path, nullptr);
}

const DesktopEntryIndex::Entries& DesktopEntryIndex::withId(const QString& id) const {
    return lookUp(byId_, id);
}

const DesktopEntryIndex::Entries& DesktopEntryIndex::withWmClass(const QString& name) const {
    return lookUp(byWmClass_, name);
}

const DesktopEntryIndex::Entries& DesktopEntryIndex::withProgram(const QString& program) const {
    return lookUp(byProgram_, program);
}

void DesktopEntryIndex::insert(Keys& keys, const QString& key, const DesktopEntry* entry) {
    if (key.isEmpty())
        return;
    Entries& entries = keys[key.toLower()];
    if (std::find(entries.begin(), entries.end(), entry) != entries.end())
        return;
    const auto behindListed = std::find_if(
        entries.begin(), entries.end(), [](const DesktopEntry* other) { return !other->listed; });
    entries.insert(entry->listed ? behindListed : entries.end(), entry);
}

const DesktopEntryIndex::Entries& DesktopEntryIndex::lookUp(const Keys& keys, const QString& key) {
    static const Entries none;
    const auto found = keys.constFind(key.toLower());
    return found == keys.constEnd() ? none : *found;
}

} // namespace skipnest::linuxdesktop
