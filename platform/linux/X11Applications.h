// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/RunningApplication.h"
#include "platform/linux/ApplicationIdentity.h"
#include "platform/linux/DesktopEntries.h"
#include "platform/linux/X11Windows.h"

#include <QHash>

#include <optional>
#include <unordered_map>
#include <vector>

namespace skipnest::linuxdesktop {

// The windows of one application.
struct X11Application {
    ApplicationIdentity identity;
    std::vector<xcb_window_t> windows; // the most recently used first
    std::int64_t processId = 0;        // of the first of them; 0 where it names none
    // What the rest of the program knows it by, one number an application. The process id where
    // there is one of its own. Programs that show several applications from one process, and
    // windows without a process, get negative numbers, kept while the application runs.
    platform::ProcessIdentifier pid;

    [[nodiscard]] platform::RunningApplication described() const {
        return {pid, identity.bundleIdentifier, identity.path, identity.name};
    }
};

// Windows grouped into running applications, oldest application first.
class X11Applications {
public:
    X11Applications(X11Windows& windows, DesktopEntries& entries);

    // Brings the groups up to date with windows and entries. Cheap when nothing has changed; the
    // pointers below are valid until the next call.
    void update();

    [[nodiscard]] const std::vector<X11Application>& all() const { return applications_; }
    [[nodiscard]] const X11Application* active() const;
    // Also finds the application by the number of a process that only older windows of it have.
    [[nodiscard]] const X11Application* withPid(platform::ProcessIdentifier pid) const;
    [[nodiscard]] const X11Application* withBundleIdentifier(const QString& identifier) const;
    // The application that the entry at this path starts, by whatever name it is known.
    [[nodiscard]] const X11Application* startedBy(const QString& path);

private:
    struct Group {
        std::int64_t number = 0;  // grows in order of appearance
        std::int64_t claimed = 0; // the process id that this group alone answers to
    };

    void regroup();
    void sortByUse();
    void numberGroups();

    X11Windows& windows_;
    DesktopEntries& entries_;
    std::vector<X11Application> applications_;
    std::unordered_map<xcb_window_t, std::size_t> ofWindow_;
    QHash<QString, std::size_t> byPath_;
    QHash<QString, Group> groups_; // by identity
    std::int64_t lastNumber_ = 1;
    std::uint64_t seenWindows_ = 0;
    std::uint64_t seenEntries_ = 0;
    xcb_window_t seenActive_ = XCB_WINDOW_NONE;
};

} // namespace skipnest::linuxdesktop
