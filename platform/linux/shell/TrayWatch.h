// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Observers.h"
#include "platform/linux/X11Display.h"
#include "platform/linux/shell/BusSignal.h"

#include <QColor>

#include <functional>
#include <memory>
#include <optional>

class QDBusServiceWatcher;

namespace skipnest::linuxdesktop {

// What takes up status icons on this desktop: a StatusNotifierItem host on the session bus, or a
// tray window that embeds icons (XEmbed). Panels come late and go again; whoever waits for one must
// not ask Qt, which remembers the first answer for the life of the program.
class TrayWatch {
public:
    enum class Tray {
        undecided, // the bus has not answered yet
        none,
        notifier, // where both are, as Qt chooses
        embedding,
    };

    // `display` is null outside X11. `changed` is told whenever tray() becomes another,
    // never from the constructor.
    TrayWatch(X11Display* display, std::function<void()> changed);
    ~TrayWatch();
    TrayWatch(const TrayWatch&) = delete;
    TrayWatch& operator=(const TrayWatch&) = delete;

    [[nodiscard]] Tray tray() const { return tray_; }
    // What an embedding tray wants symbols to be drawn in, where it says so.
    [[nodiscard]] std::optional<QColor> foreground() const;

private:
    void watchBus();
    void askWatcher();
    void handleEvent(const xcb_generic_event_t& event);
    void findEmbedder();
    [[nodiscard]] Tray found() const;
    void update();

    X11Display* display_;
    std::function<void()> changed_;
    Tray tray_ = Tray::undecided;
    std::optional<bool> notifierHost_; // nothing: not answered yet
    xcb_window_t embedder_ = XCB_WINDOW_NONE;
    std::uint64_t question_ = 0;
    std::unique_ptr<QDBusServiceWatcher> watcherService_;
    std::unique_ptr<BusSignal> hostRegistered_;
    std::unique_ptr<BusSignal> hostUnregistered_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    platform::Observation rootMask_;
    platform::Observation events_;
};

} // namespace skipnest::linuxdesktop
