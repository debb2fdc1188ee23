// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/KeyEvents.h"
#include "platform/linux/X11Keymap.h"
#include "platform/linux/X11RawKeys.h"

#include <map>

namespace skipnest::linuxdesktop {

// Key events by XInput2, typing by XTEST. The connection for the events exists only while somebody
// listens; its events and those on Qt's connection are in no order, their times are.
class X11KeyEvents final : public platform::KeyEvents {
public:
    // `tapDisplay` is where the tap listens; empty means $DISPLAY, as for Qt.
    X11KeyEvents(X11Display& display, X11Keymap& keymap, platform::Scheduler& scheduler,
                 QByteArray tapDisplay = {});
    ~X11KeyEvents() override;

    [[nodiscard]] platform::Availability availability() const override;
    [[nodiscard]] platform::Result<platform::KeyTap>
    listen(platform::KeyEventListener& listener) override;
    [[nodiscard]] platform::Result<platform::KeyTap> intercept(platform::KeyInterceptor&) override {
        return platform::Failure{platform::Failure::Kind::unavailable,
                                 QStringLiteral("Keys cannot be taken over.")};
    }
    [[nodiscard]] platform::EventFlags modifiersDown() const override;
    // Gives up a keyboard grab of this program's own, which would otherwise get the keys itself: a
    // hotkey's lasts as long as its key is down. Modifiers that a person holds are released for the
    // stroke and pressed again.
    platform::Outcome post(const platform::KeyStroke& stroke) override;

private:
    void handle(const X11RawKeys::Event& event);
    [[nodiscard]] std::vector<xcb_keycode_t> queryKeysDown() const;

    X11Display& display_;
    X11Keymap& keymap_;
    platform::Scheduler& scheduler_;
    QByteArray tapDisplay_;
    std::unique_ptr<X11RawKeys> raw_;
    // Modifier keys that are down, as what they were when they went down.
    std::map<xcb_keycode_t, ModifierKey> down_;
    bool capsLocked_ = false;
    platform::Observers<const platform::ModifierEvent&> modifierListeners_;
    platform::Observers<platform::Instant> otherKeyListeners_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::linuxdesktop
