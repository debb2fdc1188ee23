// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Scheduler.h"
#include "platform/linux/X11Display.h"

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace skipnest::linuxdesktop {

// Tells that clients of the X server have ended, also such as never had a window. The server has
// freed what they had grabbed before it looks at any request that is made then.
//
// X.Org's server keeps the word back until it next has something to send to any client: on a still
// desktop it comes with the next key or pointer motion, at the latest with the press of the
// modifier of a hotkey.
//
// On a connection of its own, because the server takes no further requests on one that records.
// Closing it ends the recording. One that breaks falls silent.
class X11ClientDeaths {
public:
    using Sink = std::function<void()>;

    // On the server of $DISPLAY; null where it does not record (no RECORD extension, no further
    // connection). The sink is called once for all that were told together, and may destroy this
    // object.
    [[nodiscard]] static std::unique_ptr<X11ClientDeaths> open(platform::Scheduler& scheduler,
                                                               Sink sink);
    ~X11ClientDeaths();

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    using Connection = std::unique_ptr<xcb_connection_t, Disconnect>;

    X11ClientDeaths(Connection connection, unsigned recording, Sink sink);
    void drain();

    Connection connection_;
    unsigned recording_; // the request whose replies are the record
    Sink sink_;
    QSocketNotifier notifier_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::linuxdesktop
