// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Ports.h"
#include "platform/ScreenCapture.h"

#include <QImage>
#include <QRectF>
#include <QString>

#include <functional>
#include <vector>

namespace skipnest::switcher {

// The size of a preview: 35 % of the window's, at least 240 x 150.
[[nodiscard]] QSize previewSize(const QSizeF& window);

// Pictures of one application's windows, for the bar.
class ContentGrabber {
public:
    struct Shot {
        QString identifier; // "AXWindowID" of the window
        QString title;
        QRectF frame;
        bool isOnScreen = false;
        QImage image;
    };

    explicit ContentGrabber(const platform::Ports& ports);

    // Each shot is told on the main thread as it comes, never from inside. A new start, stop() or
    // the end of this object drops what is under way.
    void start(const platform::RunningApplication& app, std::function<void(const Shot&)> taken);
    void stop();

private:
    void captureAll(const std::vector<platform::CapturableWindow>& windows);

    platform::Ports ports_;
    platform::ProcessIdentifier owner_;
    std::function<void(const Shot&)> taken_;
    platform::ScreenCaptureRun listing_;
    std::vector<platform::ScreenCaptureRun> captures_;
};

} // namespace skipnest::switcher
