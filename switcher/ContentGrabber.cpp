// SPDX-License-Identifier: Apache-2.0
#include "switcher/ContentGrabber.h"

#include "platform/Diagnostics.h"

#include <algorithm>
#include <utility>

namespace skipnest::switcher {

using platform::Availability;
using platform::CapturableWindow;

namespace {

// Of the window's width and height: as sharp as a card shows it on a dense screen.
constexpr double scale = 0.35;
// A small window's picture still fills its card.
constexpr QSize smallest(240, 150);
// Keeps a frame that no screen has from asking for more memory than there is.
constexpr double largestSide = 4096;

int previewSide(double side, int least) {
    return std::max(static_cast<int>(std::clamp(side * scale, 0.0, largestSide)), least);
}

} // namespace

QSize previewSize(const QSizeF& window) {
    return {previewSide(window.width(), smallest.width()),
            previewSide(window.height(), smallest.height())};
}

ContentGrabber::ContentGrabber(const platform::Ports& ports) : ports_(ports) {}

void ContentGrabber::start(const platform::RunningApplication& app,
                           std::function<void(const Shot&)> taken) {
    stop();
    platform::ScreenCapture& screen = ports_.screenCapture;
    if (screen.availability().state == Availability::State::unavailable)
        return;
    if (!screen.isGranted()) {
        ports_.diagnostics.log(
            QStringLiteral("switcher: Screen Recording not granted — AX windows + icons only"));
        screen.requestAccess();
        return;
    }
    owner_ = app.pid;
    taken_ = std::move(taken);
    listing_ =
        screen.listWindows([this](const platform::Result<std::vector<CapturableWindow>>& windows) {
            if (windows)
                captureAll(*windows);
            else
                ports_.diagnostics.log(QStringLiteral("switcher: SCShareableContent failed"));
        });
}

void ContentGrabber::stop() {
    listing_.reset();
    captures_.clear();
    taken_ = nullptr;
}

void ContentGrabber::captureAll(const std::vector<CapturableWindow>& windows) {
    for (const CapturableWindow& window : windows) {
        if (window.owner != owner_)
            continue;
        captures_.push_back(ports_.screenCapture.capture(
            window, previewSize(window.frame.size()), [this, window](const QImage* picture) {
                if (picture == nullptr)
                    return;
                const Shot shot{window.identifier, window.title, window.frame, window.isOnScreen,
                                *picture};
                // Who is told may stop or start anew, which drops the original and this closure.
                const auto taken = taken_;
                taken(shot);
            }));
    }
}

} // namespace skipnest::switcher
