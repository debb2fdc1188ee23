// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Availability.h"
#include "platform/Owned.h"
#include "platform/Result.h"
#include "platform/RunningApplication.h"

#include <QRectF>
#include <QSize>
#include <QString>

#include <functional>
#include <vector>

class QImage;

namespace skipnest::platform {

// A window whose picture can be taken.
struct CapturableWindow {
    QString identifier; // "AXWindowID" of Accessibility
    ProcessIdentifier owner;
    QString title;
    QRectF frame; // in the coordinates of Screens
    bool isOnScreen = false;

    bool operator==(const CapturableWindow&) const = default;
};

// A capture under way; dropping it ends it, and nothing is told any more.
using ScreenCaptureRun = Owned<struct ScreenCaptureRunTag>;

// Still pictures of other programs' windows, covered and minimised ones included where the system
// allows. Nothing is ever written to a disk.
class ScreenCapture {
public:
    using Listed = std::function<void(const Result<std::vector<CapturableWindow>>&)>;
    // Null where the window has gone or the system refused.
    using Captured = std::function<void(const QImage* picture)>;

    virtual ~ScreenCapture() = default;

    [[nodiscard]] virtual Availability availability() const = 0;
    // Whether the person allowed it.
    [[nodiscard]] virtual bool isGranted() const = 0;
    // The system's own question to the person.
    virtual void requestAccess() = 0;
    // While previews are off the system is asked to keep no picture of any window.
    virtual void setEnabled(bool enabled) = 0;

    // The windows of all programs. `listed` is called once, on the main thread, never from inside.
    [[nodiscard]] virtual ScreenCaptureRun listWindows(Listed listed) = 0;
    // A picture of this size in pixels, without the pointer. `captured` is called once, on the main
    // thread, never from inside.
    [[nodiscard]] virtual ScreenCaptureRun capture(const CapturableWindow& window,
                                                   const QSize& size, Captured captured) = 0;
};

} // namespace skipnest::platform
