// SPDX-License-Identifier: Apache-2.0
#include "platform/sim/SimScreenCapture.h"

#include <QImage>

#include <algorithm>
#include <memory>

namespace skipnest::sim {

using namespace Qt::StringLiterals;
using platform::CapturableWindow;
using platform::Result;
using platform::ScreenCaptureRun;

QRgb SimScreenCapture::colourOf(const QString& identifier) {
    // A large odd step, so that neighbouring numbers look different.
    return 0xFF000000U | (identifier.toUInt() * 0x9E3779B1U >> 8);
}

std::vector<CapturableWindow> SimScreenCapture::windows() const {
    std::vector<CapturableWindow> windows;
    for (const auto& running : applications_.runningApplications()) {
        const SimApp* app = applications_.findRunning(running.pid);
        if (app == nullptr)
            continue;
        const bool hidden = applications_.isHidden(app->name);
        for (const SimWindow& window : app->windows)
            windows.push_back({.identifier = QString::number(window.id),
                               .owner = app->pid,
                               .title = window.title,
                               .frame = window.frame.value_or(QRectF()),
                               .isOnScreen = !hidden && !window.minimized});
    }
    return windows;
}

ScreenCaptureRun SimScreenCapture::later(std::function<void()> task) {
    const auto timer = std::make_shared<platform::Timer>();
    *timer = scheduler_.after(delay_, "sim screen capture", std::move(task));
    return ScreenCaptureRun([timer] { timer->reset(); });
}

ScreenCaptureRun SimScreenCapture::listWindows(Listed listed) {
    return later([this, listed = std::move(listed)] {
        using List = Result<std::vector<CapturableWindow>>;
        listed(refusal_ ? List(*refusal_) : List(windows()));
    });
}

ScreenCaptureRun SimScreenCapture::capture(const CapturableWindow& window, const QSize& size,
                                           Captured captured) {
    journal_.call(
        u"capture"_s,
        {{u"title"_s, window.title}, {u"width"_s, size.width()}, {u"height"_s, size.height()}});
    return later([this, identifier = window.identifier, size, captured = std::move(captured)] {
        const std::vector<CapturableWindow> open = windows();
        if (std::ranges::find(open, identifier, &CapturableWindow::identifier) == open.end())
            return captured(nullptr);
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(colourOf(identifier));
        captured(&picture);
    });
}

} // namespace skipnest::sim
