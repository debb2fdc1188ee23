// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Result.h"
#include "platform/Scheduler.h"
#include "platform/linux/X11Display.h"

#include <QSocketNotifier>

#include <memory>
#include <vector>

namespace skipnest::linuxdesktop {

// Every key or every button event, whoever has the focus or a grab, as XInput2 raw events.
//
// On a connection of its own: while a client holds a grab, its own connection gets no raw events,
// so on Qt's the releases after a hotkey would be missing. One that breaks falls silent.
class X11RawInput {
public:
    enum class Devices { keyboard, buttons };
    struct Event {
        enum class Kind { press, repeat, release };
        Kind kind = Kind::press;
        std::uint32_t detail = 0; // X keycode or button number
        xcb_timestamp_t time = 0;
    };
    using Sink = std::function<void(const Event&)>;

    // An empty display name means $DISPLAY. The sink may destroy this object.
    [[nodiscard]] static platform::Result<std::unique_ptr<X11RawInput>>
    open(const QByteArray& displayName, platform::Scheduler& scheduler, Devices devices, Sink sink);
    ~X11RawInput();

    // Whether the server sends events: it does from the start. Quicker by far than another
    // connection, as no answer is waited for.
    void setListening(bool listens);

    // The keys that are down before the first event that the sink is told of.
    [[nodiscard]] const std::vector<xcb_keycode_t>& keysDownAtStart() const { return down_; }
    [[nodiscard]] bool broken() const { return xcb_connection_has_error(connection_.get()) != 0; }

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    using Connection = std::unique_ptr<xcb_connection_t, Disconnect>;

    X11RawInput(Connection connection, Devices devices, Sink sink);
    [[nodiscard]] platform::Outcome select();
    [[nodiscard]] xcb_void_cookie_t request(std::uint32_t events) const;
    void drain();

    Connection connection_;
    const Devices devices_;
    Sink sink_;
    std::vector<xcb_keycode_t> down_;
    std::uint8_t inputOpcode_ = 0;
    QSocketNotifier notifier_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

// The keys that are down now, asked of the server.
[[nodiscard]] std::vector<xcb_keycode_t> queryKeysDown(xcb_connection_t* connection);

} // namespace skipnest::linuxdesktop
