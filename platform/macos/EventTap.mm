// SPDX-License-Identifier: Apache-2.0
#include "platform/macos/EventTap.h"

#include "platform/macos/CoreFoundationOwner.h"

#import <CoreGraphics/CoreGraphics.h>
#import <Foundation/Foundation.h>

#include <utility>

namespace skipnest::macos {
namespace {

constexpr CGEventMask tappedEvents =
    CGEventMaskBit(kCGEventFlagsChanged) | CGEventMaskBit(kCGEventKeyDown);

// Quartz stamps events in nanoseconds of uptime on every processor; only the mach clock counts in
// ticks of its own.
double age(CGEventRef event) {
    const double seconds = static_cast<double>(CGEventGetTimestamp(event)) / 1e9;
    return NSProcessInfo.processInfo.systemUptime - seconds;
}

class QuartzTap final : public KeyboardTap {
public:
    // Null where the system gives no port, which it does without the permission to listen.
    static std::unique_ptr<QuartzTap> create(KeyboardEventBridge::Tapped tapped) {
        std::unique_ptr<QuartzTap> tap(new QuartzTap(std::move(tapped)));
        return tap->install() ? std::move(tap) : nullptr;
    }
    QuartzTap(const QuartzTap&) = delete;
    QuartzTap& operator=(const QuartzTap&) = delete;

    ~QuartzTap() override {
        if (source_)
            CFRunLoopRemoveSource(CFRunLoopGetMain(), source_.get(), kCFRunLoopCommonModes);
        if (port_) {
            CGEventTapEnable(port_.get(), false);
            CFMachPortInvalidate(port_.get());
        }
    }

    TapHealth health() const override {
        if (!CFMachPortIsValid(port_.get()))
            return TapHealth::invalid;
        return CGEventTapIsEnabled(port_.get()) ? TapHealth::running : TapHealth::disabled;
    }

    void enable() override { CGEventTapEnable(port_.get(), true); }

private:
    explicit QuartzTap(KeyboardEventBridge::Tapped tapped)
        : tapped_(std::make_shared<KeyboardEventBridge::Tapped>(std::move(tapped))) {}

    bool install() {
        port_.reset(CGEventTapCreate(kCGSessionEventTap, kCGHeadInsertEventTap,
                                     kCGEventTapOptionListenOnly, tappedEvents, tapEvent, this));
        if (!port_)
            return false;
        source_.reset(CFMachPortCreateRunLoopSource(nullptr, port_.get(), 0));
        if (!source_)
            return false;
        CFRunLoopAddSource(CFRunLoopGetMain(), source_.get(), kCFRunLoopCommonModes);
        enable();
        return true;
    }

    static CGEventRef tapEvent(CGEventTapProxy, CGEventType type, CGEventRef event, void* context) {
        auto* self = static_cast<QuartzTap*>(context);
        if (type == kCGEventTapDisabledByTimeout || type == kCGEventTapDisabledByUserInput)
            self->enable();
        else if (type == kCGEventFlagsChanged || type == kCGEventKeyDown)
            self->tell(type, event);
        return event;
    }

    void tell(CGEventType type, CGEventRef event) const {
        TappedKey key;
        if (type == kCGEventFlagsChanged) {
            key.kind = TappedKey::Kind::modifierChanged;
            key.keyCode = static_cast<std::uint16_t>(
                CGEventGetIntegerValueField(event, kCGKeyboardEventKeycode));
        }
        key.flags = CGEventGetFlags(event);
        key.ageSeconds = age(event);
        const auto tapped = tapped_; // this tap may be destroyed by the call
        (*tapped)(key);
    }

    std::shared_ptr<KeyboardEventBridge::Tapped> tapped_;
    CoreFoundationOwner<CFMachPortRef> port_;
    CoreFoundationOwner<CFRunLoopSourceRef> source_;
};

class QuartzKeyboardEvents final : public KeyboardEventBridge {
public:
    bool mayListen() const override { return CGPreflightListenEventAccess(); }
    bool mayPost() const override { return CGPreflightPostEventAccess(); }

    std::unique_ptr<KeyboardTap> tap(Tapped tapped) override {
        return QuartzTap::create(std::move(tapped));
    }

    std::uint64_t flagsDown() const override {
        return CGEventSourceFlagsState(kCGEventSourceStateCombinedSessionState);
    }

    // The flags are set on both events: without that they would carry whatever modifiers of the
    // shortcut the person still holds.
    bool post(std::uint16_t keyCode, std::uint64_t flags) override {
        const CoreFoundationOwner<CGEventSourceRef> source(
            CGEventSourceCreate(kCGEventSourceStateHIDSystemState));
        const CoreFoundationOwner<CGEventRef> down(
            CGEventCreateKeyboardEvent(source.get(), keyCode, true));
        const CoreFoundationOwner<CGEventRef> up(
            CGEventCreateKeyboardEvent(source.get(), keyCode, false));
        if (!down || !up)
            return false;
        CGEventSetFlags(down.get(), flags);
        CGEventSetFlags(up.get(), flags);
        CGEventPost(kCGHIDEventTap, down.get());
        CGEventPost(kCGHIDEventTap, up.get());
        return true;
    }
};

} // namespace

std::unique_ptr<KeyboardEventBridge> quartzKeyboardEvents() {
    return std::make_unique<QuartzKeyboardEvents>();
}

} // namespace skipnest::macos
