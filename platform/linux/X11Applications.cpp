// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/X11Applications.h"

#include "platform/linux/BundleIdentifiers.h"

#include <algorithm>

namespace skipnest::linuxdesktop {

X11Applications::X11Applications(X11Windows& windows, DesktopEntries& entries)
    : windows_(windows), entries_(entries) {}

void X11Applications::update() {
    windows_.settle();
    (void)entries_.index();
    const bool regrouping =
        seenWindows_ != windows_.generation() || seenEntries_ != entries_.generation();
    if (regrouping)
        regroup();
    if (regrouping || seenActive_ != windows_.active()) {
        seenActive_ = windows_.active();
        sortByUse();
        numberGroups();
    }
}

const X11Application* X11Applications::active() const {
    const auto found = ofWindow_.find(windows_.active());
    return found == ofWindow_.end() ? nullptr : &applications_[found->second];
}

const X11Application* X11Applications::withPid(platform::ProcessIdentifier pid) const {
    for (const X11Application& application : applications_) {
        if (application.pid == pid)
            return &application;
    }
    if (pid.value <= 0)
        return nullptr;
    for (const X11Application& application : applications_) {
        for (const xcb_window_t window : application.windows) {
            if (const X11Window* known = windows_.find(window); known && known->pid == pid.value)
                return &application;
        }
    }
    return nullptr;
}

const X11Application* X11Applications::withBundleIdentifier(const QString& identifier) const {
    const auto found = std::find_if(applications_.begin(), applications_.end(),
                                    [&](const X11Application& application) {
                                        return application.identity.bundleIdentifier == identifier;
                                    });
    return found == applications_.end() ? nullptr : &*found;
}

const X11Application* X11Applications::startedBy(const QString& path) {
    if (const auto found = byPath_.constFind(path); found != byPath_.constEnd())
        return &applications_[*found];
    const DesktopEntry* entry = entries_.entry(path);
    if (entry == nullptr)
        return nullptr;
    update(); // the entry may be new, and be the better name for a window
    if (const auto found = byPath_.constFind(path); found != byPath_.constEnd())
        return &applications_[*found];
    if (const X11Application* same = withBundleIdentifier(bundleIdentifierOf(entry->id)))
        return same;
    for (const X11Application& application : applications_) {
        for (const xcb_window_t window : application.windows) {
            if (const X11Window* known = windows_.find(window);
                known && alsoBelongsTo(known->facts, *entry))
                return &application;
        }
    }
    return nullptr;
}

void X11Applications::regroup() {
    seenWindows_ = windows_.generation();
    seenEntries_ = entries_.generation();
    const DesktopEntryIndex& index = entries_.index();
    QHash<QString, std::size_t> places;
    QHash<QString, Group> groups;
    applications_.clear();
    for (const xcb_window_t window : windows_.stacking()) {
        const X11Window* known = windows_.find(window);
        if (known == nullptr)
            continue;
        ApplicationIdentity identity = identify(known->facts, index);
        if (identity.id.isEmpty())
            identity.id = QStringLiteral("window %1").arg(window);
        auto place = places.constFind(identity.id);
        if (place == places.constEnd()) {
            const auto before = groups_.constFind(identity.id);
            groups.insert(identity.id,
                          before == groups_.constEnd() ? Group{++lastNumber_, 0} : *before);
            place = places.insert(identity.id, applications_.size());
            applications_.push_back({std::move(identity), {}, 0, {}});
        }
        applications_[*place].windows.push_back(window);
    }
    groups_ = std::move(groups);
    const auto age = [this](const X11Application& application) {
        return groups_.value(application.identity.id).number;
    };
    std::sort(applications_.begin(), applications_.end(),
              [&](const auto& a, const auto& b) { return age(a) < age(b); });
    ofWindow_.clear();
    byPath_.clear();
    for (std::size_t place = 0; place < applications_.size(); ++place) {
        // Windows that were never in front stay behind the others, the topmost of them first.
        auto& windows = applications_[place].windows;
        std::reverse(windows.begin(), windows.end());
        for (const xcb_window_t window : applications_[place].windows)
            ofWindow_[window] = place;
        if (const QString& path = applications_[place].identity.path; !path.isEmpty())
            byPath_.insert(path, place);
    }
}

void X11Applications::sortByUse() {
    const auto focused = [this](xcb_window_t window) {
        const X11Window* known = windows_.find(window);
        return known == nullptr ? 0 : known->focused;
    };
    for (X11Application& application : applications_) {
        std::stable_sort(application.windows.begin(), application.windows.end(),
                         [&](xcb_window_t a, xcb_window_t b) { return focused(a) > focused(b); });
    }
}

void X11Applications::numberGroups() {
    for (X11Application& application : applications_) {
        application.processId = 0;
        if (const X11Window* first = windows_.find(application.windows.front()))
            application.processId = first->pid;
    }
    QHash<std::int64_t, bool> taken;
    const auto claim = [&](X11Application& application, Group& group) {
        group.claimed = application.processId;
        taken.insert(application.processId, true);
        application.pid = {application.processId};
    };
    // Who has had the number keeps it.
    for (X11Application& application : applications_) {
        Group& group = groups_[application.identity.id];
        application.pid = {};
        if (application.processId > 0 && group.claimed == application.processId)
            claim(application, group);
    }
    for (X11Application& application : applications_) {
        Group& group = groups_[application.identity.id];
        if (application.pid.value > 0)
            continue;
        const bool once = group.claimed < 0;
        if (application.processId > 0 && !once && !taken.contains(application.processId)) {
            claim(application, group);
        } else {
            group.claimed = -group.number;
            application.pid = {-group.number};
        }
    }
}

} // namespace skipnest::linuxdesktop
