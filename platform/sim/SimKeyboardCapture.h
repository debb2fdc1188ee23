// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/DesktopShortcuts.h"
#include "platform/KeyboardCapture.h"
#include "platform/sim/VirtualScheduler.h"

#include <memory>

namespace skipnest::sim {

// The keyboard while a recording has it.
class SimKeyboardCapture final : public platform::KeyboardCapture {
public:
    explicit SimKeyboardCapture(const VirtualScheduler& scheduler) : scheduler_(scheduler) {}

    // Nothing happens while nobody captures.
    void press(std::uint16_t keyCode, platform::EventFlags flags) const;
    void changeModifiers(std::uint16_t keyCode, platform::EventFlags flags) const;
    // The screen is locked.
    void takeAway();
    void refuse(bool refused) { refused_ = refused; }
    [[nodiscard]] bool isCaptured() const { return events_ != nullptr; }

    [[nodiscard]] platform::Availability availability() const override { return {}; }
    [[nodiscard]] platform::Result<platform::KeyboardGrab>
    capture(platform::KeyboardCaptureEvents& events) override;

private:
    const VirtualScheduler& scheduler_;
    platform::KeyboardCaptureEvents* events_ = nullptr;
    bool refused_ = false;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

// The desktop's own combos, as a test sets them.
class SimDesktopShortcuts final : public platform::DesktopShortcuts {
public:
    explicit SimDesktopShortcuts(VirtualScheduler& scheduler) : scheduler_(scheduler) {}

    void set(platform::DesktopShortcutReading reading) { reading_ = std::move(reading); }

    [[nodiscard]] platform::Availability availability() const override { return {}; }
    void read(std::function<void(platform::DesktopShortcutReading)> done) override;

private:
    VirtualScheduler& scheduler_;
    platform::DesktopShortcutReading reading_;
};

} // namespace skipnest::sim
