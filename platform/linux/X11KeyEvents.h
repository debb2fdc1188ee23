// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/KeyEvents.h"
#include "platform/linux/X11KeyStrokes.h"
#include "platform/linux/X11Keymap.h"
#include "platform/linux/X11RawInput.h"
#include "platform/linux/keys/X11KeyInterception.h"

#include <map>

namespace skipnest::linuxdesktop {

// Key events by XInput2, taking keys over by a keyboard grab, typing by XTEST. The connection for
// the events exists only while somebody listens; its events and those on Qt's connection are in no
// order, their times are.
class X11KeyEvents final : public platform::KeyEvents {
public:
    // `tapDisplay` is where the tap listens; empty means $DISPLAY, as for Qt.
    X11KeyEvents(X11Display& display, X11Keymap& keymap, platform::Scheduler& scheduler,
                 QByteArray tapDisplay = {});
    ~X11KeyEvents() override;

    [[nodiscard]] platform::Availability availability() const override;
    [[nodiscard]] platform::Result<platform::KeyTap>
    listen(platform::KeyEventListener& listener) override;
    [[nodiscard]] platform::Result<platform::KeyTap>
    intercept(platform::KeyInterceptor& interceptor) override;
    [[nodiscard]] platform::EventFlags modifiersDown() const override;
    platform::Outcome post(const platform::KeyStroke& stroke) override;

private:
    void handle(const X11RawInput::Event& event);

    X11Display& display_;
    X11Keymap& keymap_;
    platform::Scheduler& scheduler_;
    QByteArray tapDisplay_;
    X11KeyStrokes strokes_;
    X11KeyInterception interception_;
    std::unique_ptr<X11RawInput> raw_;
    // Modifier keys that are down, as what they were when they went down.
    std::map<xcb_keycode_t, ModifierKey> down_;
    bool capsLocked_ = false;
    platform::Observers<const platform::ModifierEvent&> modifierListeners_;
    platform::Observers<platform::Instant> otherKeyListeners_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::linuxdesktop
