// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Scheduler.h"
#include "platform/linux/X11Display.h"

#include <QRect>
#include <QSocketNotifier>

#include <functional>
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace skipnest::linuxdesktop {

// Windows of which some are kept live: the server keeps their contents as a whole, covered parts
// included, by Composite's automatic redirection. That is memory for all their pixels, but not
// beside a compositor, which has them redirected itself.
//
// The root's child is what is redirected: a window manager's frame with the window in it. Its
// pixmap is named at once, because that is the last picture that there will be once it is unmapped,
// as windows that are minimised or on another desktop are, or is live no more.
//
// On a connection of its own: closing it ends all redirections and frees all pixmaps, and what is
// asked of a window that has just gone is refused without a line in Qt's log.
class RedirectedWindows {
public:
    // A name for a window's contents; what has a name stays. Freed with the last owner.
    class Pixmap;
    struct Window {
        xcb_window_t frame = XCB_WINDOW_NONE;
        // Of the frame with the whole client in it, in the server's pixels.
        QRect geometry;
        bool viewable = false; // the frame is
        bool live = false;
        // Live and viewable, with the whole client in the frame. Not so in one that is rolled up
        // to its title bar, or that shrinks as it is minimised: openbox does that for 160 ms.
        bool whole = false;
        std::shared_ptr<const Pixmap> pixmap; // as it was when last whole; none before

        QSize frameSize;
        QSize clientSize;
    };
    struct Events {
        // The pixmap is the last picture of the window until it is whole again.
        std::function<void(xcb_window_t)> hidden;
        // A frame is another one, gone or viewable: follow() and setLive() have to be told again.
        std::function<void()> changed;
    };

    // Null where the server has no Composite extension or takes no further connection.
    [[nodiscard]] static std::unique_ptr<RedirectedWindows> open(platform::Scheduler& scheduler,
                                                                 Events events);
    ~RedirectedWindows();

    // These are the windows, named by the clients' own; others are left alone from now on.
    void follow(const std::vector<xcb_window_t>& clients);
    // Of those that are followed, these and no others are live.
    void setLive(const std::unordered_set<xcb_window_t>& clients);
    [[nodiscard]] bool hasCompositor() const;
    // Null for a window that is not followed.
    [[nodiscard]] const Window* find(xcb_window_t client) const;
    // A picture of the window has been kept elsewhere.
    void forgetPixmap(xcb_window_t client);

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    using Connection = std::shared_ptr<xcb_connection_t>;

    RedirectedWindows(Connection connection, xcb_atom_t compositor, platform::Scheduler& scheduler,
                      Events events);
    void drain();
    void drainSoon();
    void handle(const xcb_generic_event_t& event);
    [[nodiscard]] xcb_window_t frameOf(xcb_window_t client) const;
    void add(xcb_window_t client);
    void leave(xcb_window_t client, const Window& window);
    static void configure(xcb_window_t client, Window& window,
                          const xcb_configure_notify_event_t& event);
    // Takes in what has become of its two sizes and of being mapped.
    void update(xcb_window_t client, Window& window);
    // The client that this is, or is the frame of; XCB_WINDOW_NONE for other windows.
    [[nodiscard]] xcb_window_t clientOf(xcb_window_t window) const;

    Connection connection_;
    platform::Scheduler& scheduler_;
    const Events events_;
    const xcb_window_t root_;
    const xcb_atom_t compositor_;                      // the selection that one owns
    std::unordered_map<xcb_window_t, Window> windows_; // by client
    QSocketNotifier notifier_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

class RedirectedWindows::Pixmap {
public:
    Pixmap(std::weak_ptr<xcb_connection_t> connection, xcb_pixmap_t id)
        : connection_(std::move(connection)), id_(id) {}
    ~Pixmap();
    Pixmap(const Pixmap&) = delete;
    Pixmap& operator=(const Pixmap&) = delete;

    [[nodiscard]] xcb_pixmap_t id() const { return id_; }

private:
    std::weak_ptr<xcb_connection_t> connection_;
    xcb_pixmap_t id_;
};

} // namespace skipnest::linuxdesktop
