// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/KeyboardCapture.h"
#include "platform/linux/SessionKind.h"

#include <QObject>

#include <memory>

namespace skipnest::linuxdesktop {

// Keys that reach our own windows, before any view sees them: all that a Wayland compositor lets a
// program have. Combos that the compositor acts on never arrive, which is its way of refusing them.
class WindowKeyboardCapture final : public QObject, public platform::KeyboardCapture {
public:
    WindowKeyboardCapture(SessionKind session, platform::Scheduler& scheduler)
        : session_(session), scheduler_(scheduler) {}

    [[nodiscard]] platform::Availability availability() const override;
    [[nodiscard]] platform::Result<platform::KeyboardGrab>
    capture(platform::KeyboardCaptureEvents& events) override;

private:
    bool eventFilter(QObject* watched, QEvent* event) override;

    SessionKind session_;
    platform::Scheduler& scheduler_;
    platform::KeyboardCaptureEvents* events_ = nullptr;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::linuxdesktop
