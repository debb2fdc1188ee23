// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Executor.h"
#include "platform/ScreenCapture.h"
#include "platform/linux/X11Applications.h"
#include "platform/linux/previews/LiveWindows.h"
#include "platform/linux/previews/PictureReader.h"
#include "platform/linux/previews/RedirectedWindows.h"

#include <map>
#include <optional>

namespace skipnest::linuxdesktop {

// Pictures of windows with their frames. A live window is read from what the server keeps of it; of
// the others a small picture is kept here, taken as they ceased to be live, because a full one
// would cost the server as much as a live window. Reading and scaling is done by a worker.
//
// Off until setEnabled(true).
class X11ScreenCapture final : public platform::ScreenCapture {
public:
    X11ScreenCapture(X11Display& display, platform::Scheduler& scheduler,
                     platform::Executor& executor, X11Windows& windows,
                     X11Applications& applications);

    [[nodiscard]] platform::Availability availability() const override;
    // X11 asks nobody.
    [[nodiscard]] bool isGranted() const override { return true; }
    void requestAccess() override {}
    void setEnabled(bool enabled) override;

    [[nodiscard]] platform::ScreenCaptureRun listWindows(Listed listed) override;
    [[nodiscard]] platform::ScreenCaptureRun capture(const platform::CapturableWindow& window,
                                                     const QSize& size, Captured captured) override;

private:
    using JobNumber = std::uint64_t;
    struct Job {
        xcb_window_t client = XCB_WINDOW_NONE;
        std::shared_ptr<const RedirectedWindows::Pixmap> pixmap;
        QImage kept; // in place of a pixmap
        QSize size;
        PictureReader::Shape shape = PictureReader::Shape::exact;
        PictureReader::Alpha alpha = PictureReader::Alpha::ignored;
        Captured captured; // empty where the picture is to be kept
    };
    // What the worker has of a job: nothing that frees anything.
    struct Request {
        JobNumber number = 0;
        xcb_pixmap_t pixmap = XCB_PIXMAP_NONE;
        QImage kept;
        QSize size;
        PictureReader::Shape shape = PictureReader::Shape::exact;
        PictureReader::Alpha alpha = PictureReader::Alpha::ignored;
    };
    struct Kept {
        QImage picture;
        std::uint64_t order = 0; // higher: newer
    };

    void follow();
    void followSoon();
    [[nodiscard]] PictureReader::Alpha alpha() const;
    void keepLater(xcb_window_t client);
    void keep(xcb_window_t client, const QImage& picture);
    [[nodiscard]] JobNumber add(Job job);
    void work();
    void finish(JobNumber number, const QImage& picture);
    [[nodiscard]] std::vector<platform::CapturableWindow> list();

    X11Display& display_;
    platform::Scheduler& scheduler_;
    platform::Executor& executor_;
    X11Windows& windows_;
    X11Applications& applications_;
    // While enabled.
    std::unique_ptr<RedirectedWindows> redirected_;
    std::optional<LiveWindows> live_;
    platform::Observation windowChanges_;
    std::map<JobNumber, Job> jobs_; // those that the worker has and those that wait
    JobNumber lastJob_ = 0;
    JobNumber lastSent_ = 0; // up to here the worker has them
    bool working_ = false;
    std::map<xcb_window_t, Kept> kept_;
    std::uint64_t lastKept_ = 0;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::linuxdesktop
