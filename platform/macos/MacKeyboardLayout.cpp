// SPDX-License-Identifier: Apache-2.0
#include "platform/macos/MacKeyboardLayout.h"

#include <utility>

namespace skipnest::macos {

MacKeyboardLayout::MacKeyboardLayout(KeyboardLayoutBridge& bridge, platform::Scheduler& scheduler)
    : bridge_(bridge), scheduler_(scheduler) {}

std::optional<QString> MacKeyboardLayout::character(std::uint16_t keyCode) const {
    const QString text = QString::fromStdU16String(bridge_.translate(keyCode));
    // Function, arrow and editing keys "type" control characters.
    if (text.isEmpty() || text.front().category() == QChar::Other_Control)
        return std::nullopt;
    return text;
}

platform::Observation MacKeyboardLayout::observeChanges(std::function<void()> changed) {
    if (!std::exchange(observing_, true))
        bridge_.observe([this] { sourceChanged(); });
    return observers_.add(std::move(changed));
}

// Selecting an input method tells of the method and of its layout, one right after the other.
void MacKeyboardLayout::sourceChanged() {
    if (!std::exchange(told_, false))
        return;
    scheduler_.post([this, alive = std::weak_ptr<bool>(alive_)] {
        if (alive.expired())
            return;
        told_ = true;
        observers_.notify();
    });
}

} // namespace skipnest::macos
