// SPDX-License-Identifier: Apache-2.0
#include "platform/macos/KeyboardLayoutSource.h"

#include "platform/macos/CoreFoundationOwner.h"

#import <Carbon/Carbon.h>

#include <array>
#include <utility>

namespace skipnest::macos {
namespace {

using InputSource = CoreFoundationOwner<TISInputSourceRef>;

// Not ours to release: it lives as long as its source.
CFDataRef layoutData(const InputSource& source) {
    if (!source)
        return nullptr;
    return static_cast<CFDataRef>(
        TISGetInputSourceProperty(source.get(), kTISPropertyUnicodeKeyLayoutData));
}

std::u16string translated(CFDataRef data, std::uint16_t keyCode) {
    const auto* layout = reinterpret_cast<const UCKeyboardLayout*>(CFDataGetBytePtr(data));
    UInt32 deadKeyState = 0;
    std::array<UniChar, 8> characters{};
    UniCharCount length = 0;
    const OSStatus status =
        UCKeyTranslate(layout, keyCode, kUCKeyActionDisplay, 0, LMGetKbdType(), 0, &deadKeyState,
                       characters.size(), &length, characters.data());
    if (status != noErr || length > characters.size())
        return {};
    return std::u16string(characters.begin(), characters.begin() + static_cast<long>(length));
}

class TextInputSources final : public KeyboardLayoutBridge {
public:
    TextInputSources() = default;
    TextInputSources(const TextInputSources&) = delete;
    TextInputSources& operator=(const TextInputSources&) = delete;
    ~TextInputSources() override {
        CFNotificationCenterRemoveEveryObserver(CFNotificationCenterGetDistributedCenter(), this);
    }

    // An input method (Japanese, Chinese) has no layout of its own; the second question answers
    // with the one it types through.
    std::u16string translate(std::uint16_t keyCode) const override {
        const InputSource current(TISCopyCurrentKeyboardInputSource());
        if (CFDataRef data = layoutData(current))
            return translated(data, keyCode);
        const InputSource underlying(TISCopyCurrentKeyboardLayoutInputSource());
        if (CFDataRef data = layoutData(underlying))
            return translated(data, keyCode);
        return {};
    }

    void observe(std::function<void()> changed) override {
        CFNotificationCenterRef center = CFNotificationCenterGetDistributedCenter();
        CFNotificationCenterRemoveEveryObserver(center, this);
        changed_ = std::move(changed);
        CFNotificationCenterAddObserver(center, this, sourceChanged,
                                        kTISNotifySelectedKeyboardInputSourceChanged, nullptr,
                                        CFNotificationSuspensionBehaviorDeliverImmediately);
    }

private:
    static void sourceChanged(CFNotificationCenterRef, void* observer, CFNotificationName,
                              const void*, CFDictionaryRef) {
        static_cast<TextInputSources*>(observer)->changed_();
    }

    std::function<void()> changed_;
};

} // namespace

std::unique_ptr<KeyboardLayoutBridge> keyboardLayoutSource() {
    return std::make_unique<TextInputSources>();
}

} // namespace skipnest::macos
