// SPDX-License-Identifier: Apache-2.0
#include "platform/macos/CarbonHotkeys.h"

#import <Carbon/Carbon.h>

#include <utility>

namespace skipnest::macos {
namespace {

constexpr OSType hotkeySignature = 0x534B4E50; // 'SKNP'

class CarbonHotkey final : public RegisteredHotkey {
public:
    explicit CarbonHotkey(EventHotKeyRef reference) : reference_(reference) {}
    CarbonHotkey(const CarbonHotkey&) = delete;
    CarbonHotkey& operator=(const CarbonHotkey&) = delete;
    ~CarbonHotkey() override { UnregisterEventHotKey(reference_); }

private:
    EventHotKeyRef reference_;
};

// The signature is not compared: only our own registrations arrive here, and the number alone
// selects one.
OSStatus hotkeyEvent(EventHandlerCallRef, EventRef event, void* context) {
    if (event == nullptr || context == nullptr)
        return eventNotHandledErr;
    EventHotKeyID pressed{};
    const OSStatus status = GetEventParameter(event, kEventParamDirectObject, typeEventHotKeyID,
                                              nullptr, sizeof pressed, nullptr, &pressed);
    if (status != noErr)
        return status;
    // A copy: the handler may be removed while it runs.
    const auto handler = *static_cast<std::shared_ptr<HotkeyBridge::Pressed>*>(context);
    const double age = GetCurrentEventTime() - GetEventTime(event);
    return (*handler)(pressed.id, age) ? OSStatus{noErr} : OSStatus{eventNotHandledErr};
}

class CarbonHotkeys final : public HotkeyBridge {
public:
    ~CarbonHotkeys() override { removeHandler(); }

    std::int32_t installHandler(Pressed pressed) override {
        removeHandler();
        pressed_ = std::make_shared<Pressed>(std::move(pressed));
        const EventTypeSpec type{kEventClassKeyboard, kEventHotKeyPressed};
        return InstallEventHandler(GetApplicationEventTarget(), hotkeyEvent, 1, &type, &pressed_,
                                   &handler_);
    }

    void removeHandler() override {
        if (EventHandlerRef handler = std::exchange(handler_, nullptr))
            RemoveEventHandler(handler);
    }

    HotkeyAnswer registerHotkey(std::uint32_t id, std::uint32_t keyCode,
                                std::uint32_t carbonModifiers) override {
        EventHotKeyRef reference = nullptr;
        const OSStatus status =
            RegisterEventHotKey(keyCode, carbonModifiers, EventHotKeyID{hotkeySignature, id},
                                GetApplicationEventTarget(), 0, &reference);
        if (status != noErr || reference == nullptr)
            return {status, nullptr};
        return {status, std::make_unique<CarbonHotkey>(reference)};
    }

private:
    std::shared_ptr<Pressed> pressed_; // what the system holds a pointer to
    EventHandlerRef handler_ = nullptr;
};

} // namespace

std::unique_ptr<HotkeyBridge> carbonHotkeys() {
    return std::make_unique<CarbonHotkeys>();
}

} // namespace skipnest::macos
