// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/previews/X11ScreenCapture.h"

#include "platform/linux/shell/LinuxScreens.h"

#include <QGuiApplication>
#include <QScreen>

#include <xcb/composite.h>

#include <algorithm>
#include <utility>

namespace skipnest::linuxdesktop {
namespace {

using platform::Availability;
using platform::CapturableWindow;
using platform::Failure;
using platform::ScreenCaptureRun;

// What previews are shown at: about a third of the window, of a common screen at most, 1.1 MB.
constexpr double keptScale = 0.35;
constexpr QSize smallestKept(240, 150), largestKept(672, 420);
// Some 57 of the largest. Beyond that the oldest go.
constexpr qsizetype keptBytes = qsizetype{64} << 20;

// Whoever asks has just come up to show the pictures, and is drawn first: looking at all windows
// would hold that up by some milliseconds.
constexpr platform::Duration firstFrame = std::chrono::milliseconds(16);

QRectF inScreens(const QRect& native) {
    std::vector<ScaledScreen> screens;
    for (const QScreen* screen : QGuiApplication::screens())
        screens.push_back({screen->geometry(), screen->devicePixelRatio()});
    return fromNativePixels(native, screens).value_or(native);
}

QString text(const XcbPtr<xcb_get_property_reply_t>& reply) {
    if (!reply || reply->format != 8)
        return {};
    const auto* bytes = static_cast<const char*>(xcb_get_property_value(reply.get()));
    const int length = xcb_get_property_value_length(reply.get());
    return reply->type == XCB_ATOM_STRING ? QString::fromLatin1(bytes, length)
                                          : QString::fromUtf8(bytes, length);
}

// "0x1e00007"
QString identifier(xcb_window_t window) {
    return QStringLiteral("0x") + QString::number(window, 16);
}

} // namespace

X11ScreenCapture::X11ScreenCapture(X11Display& display, platform::Scheduler& scheduler,
                                   platform::Executor& executor, X11Windows& windows,
                                   X11Applications& applications)
    : display_(display), scheduler_(scheduler), executor_(executor), windows_(windows),
      applications_(applications) {
    xcb_prefetch_extension_data(display_.connection(), &xcb_composite_id);
}

Availability X11ScreenCapture::availability() const {
    const xcb_query_extension_reply_t* extension =
        xcb_get_extension_data(display_.connection(), &xcb_composite_id);
    if (extension == nullptr || extension->present == 0)
        return {Availability::State::unavailable,
                QStringLiteral("The X server has no Composite extension, so windows are shown "
                               "without their pictures."),
                QStringLiteral("Start the X server with Composite enabled.")};
    return {};
}

void X11ScreenCapture::setEnabled(bool enabled) {
    if (enabled == (redirected_ != nullptr))
        return;
    if (enabled) {
        redirected_ =
            RedirectedWindows::open(scheduler_, {[this](xcb_window_t client) { keepLater(client); },
                                                 [this] { followSoon(); }});
        if (!redirected_)
            return;
        live_.emplace(*redirected_, windows_, scheduler_);
        windowChanges_ = windows_.observeChanges([this] { follow(); });
        windows_.settle();
        follow();
        return;
    }
    windowChanges_.reset();
    live_.reset();
    kept_.clear();
    redirected_.reset();
    // What the worker has under way finds its pixmap gone.
    for (auto& [number, job] : jobs_)
        job.pixmap.reset();
}

void X11ScreenCapture::followSoon() {
    scheduler_.post([this, alive = std::weak_ptr(alive_)] {
        if (!alive.expired())
            follow();
    });
}

void X11ScreenCapture::follow() {
    if (!redirected_)
        return;
    live_->choose();
    std::erase_if(kept_, [this](const auto& entry) {
        const auto* window = redirected_->find(entry.first);
        return window == nullptr || window->whole;
    });
}

ScreenCaptureRun X11ScreenCapture::listWindows(Listed listed) {
    auto timer = std::make_shared<platform::Timer>();
    *timer = scheduler_.after(
        firstFrame, "list of pictures",
        [this, alive = std::weak_ptr(alive_), listed = std::move(listed)] {
            if (alive.expired())
                return;
            if (redirected_)
                listed(list());
            else
                listed(Failure{Failure::Kind::unavailable,
                               QStringLiteral("pictures of windows are switched off")});
        });
    return ScreenCaptureRun([timer] { timer->reset(); });
}

std::vector<CapturableWindow> X11ScreenCapture::list() {
    windows_.settle();
    applications_.update();
    follow();
    struct Titles {
        xcb_get_property_cookie_t modern, old;
    };
    xcb_connection_t* connection = display_.connection();
    const xcb_atom_t modern = display_.atom("_NET_WM_NAME");
    constexpr std::uint32_t longest = 256; // words
    std::vector<CapturableWindow> listed;
    std::vector<Titles> titles;
    for (const X11Application& application : applications_.all()) {
        for (const xcb_window_t client : application.windows) {
            const auto* window = redirected_->find(client);
            if (window == nullptr)
                continue;
            listed.push_back({identifier(client),
                              application.pid,
                              {},
                              inScreens(window->geometry),
                              window->viewable});
            titles.push_back(
                {xcb_get_property(connection, 0, client, modern, XCB_ATOM_ANY, 0, longest),
                 xcb_get_property(connection, 0, client, XCB_ATOM_WM_NAME, XCB_ATOM_ANY, 0,
                                  longest)});
        }
    }
    for (std::size_t i = 0; i < listed.size(); ++i) {
        const XcbPtr<xcb_get_property_reply_t> utf8(
            xcb_get_property_reply(connection, titles[i].modern, nullptr));
        const XcbPtr<xcb_get_property_reply_t> old(
            xcb_get_property_reply(connection, titles[i].old, nullptr));
        listed[i].title = text(utf8);
        if (listed[i].title.isEmpty())
            listed[i].title = text(old);
    }
    return listed;
}

ScreenCaptureRun X11ScreenCapture::capture(const CapturableWindow& window, const QSize& size,
                                           Captured captured) {
    Job job;
    job.client = window.identifier.toUInt(nullptr, 16);
    job.size = size;
    job.alpha = alpha();
    job.captured = std::move(captured);
    if (const auto* found = redirected_ ? redirected_->find(job.client) : nullptr)
        job.pixmap = found->pixmap;
    if (const auto kept = kept_.find(job.client); kept != kept_.end() && !job.pixmap)
        job.kept = kept->second.picture;
    const JobNumber number = add(std::move(job));
    return ScreenCaptureRun([this, alive = std::weak_ptr(alive_), number] {
        if (!alive.expired())
            jobs_.erase(number);
    });
}

PictureReader::Alpha X11ScreenCapture::alpha() const {
    return live_ && live_->hasCompositor() ? PictureReader::Alpha::respected
                                           : PictureReader::Alpha::ignored;
}

void X11ScreenCapture::keepLater(xcb_window_t client) {
    const auto* window = redirected_->find(client);
    Job job;
    job.client = client;
    job.pixmap = window->pixmap;
    job.size =
        (window->geometry.size() * keptScale).expandedTo(smallestKept).boundedTo(largestKept);
    job.shape = PictureReader::Shape::fitting;
    job.alpha = alpha();
    if (job.pixmap)
        (void)add(std::move(job));
}

void X11ScreenCapture::keep(xcb_window_t client, const QImage& picture) {
    redirected_->forgetPixmap(client);
    if (picture.isNull())
        return;
    kept_[client] = {picture, ++lastKept_};
    qsizetype bytes = 0;
    for (const auto& [_, kept] : kept_)
        bytes += kept.picture.sizeInBytes();
    while (bytes > keptBytes) {
        const auto oldest = std::ranges::min_element(
            kept_, {}, [](const auto& entry) { return entry.second.order; });
        bytes -= oldest->second.picture.sizeInBytes();
        kept_.erase(oldest);
    }
}

X11ScreenCapture::JobNumber X11ScreenCapture::add(Job job) {
    const JobNumber number = ++lastJob_;
    jobs_.emplace(number, std::move(job));
    // All that is asked for in one go is one batch.
    scheduler_.post([this, alive = std::weak_ptr(alive_)] {
        if (!alive.expired())
            work();
    });
    return number;
}

void X11ScreenCapture::work() {
    std::vector<Request> requests;
    if (working_)
        return;
    for (auto job = jobs_.upper_bound(lastSent_); job != jobs_.end(); ++job)
        requests.push_back(
            {job->first,
             job->second.pixmap ? job->second.pixmap->id() : xcb_pixmap_t{XCB_PIXMAP_NONE},
             job->second.kept, job->second.size, job->second.shape, job->second.alpha});
    if (requests.empty())
        return;
    lastSent_ = requests.back().number;
    working_ = true;
    executor_.background(
        [this, &scheduler = scheduler_, alive = std::weak_ptr(alive_),
         requests = std::move(requests)] {
            std::unique_ptr<PictureReader> reader;
            for (const Request& request : requests) {
                QImage picture;
                if (request.pixmap != XCB_PIXMAP_NONE) {
                    if (!reader)
                        reader = PictureReader::open();
                    if (reader)
                        picture = reader->read(request.pixmap, request.size, request.shape,
                                               request.alpha);
                } else if (!request.kept.isNull()) {
                    picture = PictureReader::scaled(request.kept, request.size, request.shape);
                }
                scheduler.post([this, alive, number = request.number, picture] {
                    if (!alive.expired())
                        finish(number, picture);
                });
            }
        },
        [this, alive = std::weak_ptr(alive_)] {
            if (alive.expired())
                return;
            working_ = false;
            work();
        });
}

void X11ScreenCapture::finish(JobNumber number, const QImage& picture) {
    const auto node = jobs_.extract(number);
    if (node.empty())
        return;
    const Job& job = node.mapped();
    const auto* window = redirected_ ? redirected_->find(job.client) : nullptr;
    if (job.captured) {
        const bool gone = window == nullptr || picture.isNull();
        job.captured(gone ? nullptr : &picture);
    } else if (window != nullptr && !window->whole && window->pixmap == job.pixmap) {
        keep(job.client, picture);
    }
}

} // namespace skipnest::linuxdesktop
