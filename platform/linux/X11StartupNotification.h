// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/linux/DesktopEntryIndex.h"
#include "platform/linux/X11Display.h"

#include <QByteArray>

namespace skipnest::linuxdesktop {

// Startup notification: the desktop shows that something starts, and the new window may take the
// focus because it was asked for by the person at a known time.
class X11StartupNotification {
public:
    explicit X11StartupNotification(X11Display& display);
    ~X11StartupNotification();
    X11StartupNotification(const X11StartupNotification&) = delete;
    X11StartupNotification& operator=(const X11StartupNotification&) = delete;

    // Announces the start to the desktop; gives a fresh startup id, which ends in the time now.
    // Only for entries that say that their program answers: the others hand the id on to whatever
    // is started from them much later, whose windows would then count as asked for long ago.
    [[nodiscard]] QByteArray begin(const DesktopEntry& entry, std::uint32_t desktop);
    // The start came to nothing.
    void remove(const QByteArray& id);

private:
    void broadcast(const QByteArray& message);

    X11Display& display_;
    const xcb_window_t window_;
    const xcb_atom_t begin_;
    const xcb_atom_t continue_;
    const QByteArray prefix_;
    std::uint64_t lastId_ = 0;
};

} // namespace skipnest::linuxdesktop
