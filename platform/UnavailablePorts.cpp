// SPDX-License-Identifier: Apache-2.0
#include "platform/UnavailablePorts.h"

namespace skipnest::platform {
namespace {

Failure failure(const Availability& why) {
    return {Failure::Kind::unavailable, why.reason};
}

} // namespace

Result<KeyboardGrab> UnavailableKeyboardCapture::capture(KeyboardCaptureEvents&) {
    return failure(why_);
}

void UnavailableDesktopShortcuts::read(std::function<void(DesktopShortcutReading)> done) {
    scheduler_.post([done = std::move(done)] { done({}); });
}

FileSearch UnavailableFileIndex::search(const FileQuery&, Found found) {
    auto wanted = std::make_shared<bool>(true);
    scheduler_.post([found = std::move(found), wanted] {
        if (*wanted)
            found({});
    });
    return FileSearch([wanted] { *wanted = false; });
}

Outcome UnavailableLoginItem::registerItem() {
    return failure(why_);
}

Outcome UnavailableLoginItem::unregisterItem() {
    return failure(why_);
}

Outcome UnavailableServicesMenu::refresh() {
    return failure(why_);
}

Outcome UnavailableProcessLauncher::launch(const QString&, const QStringList&) {
    return failure(why_);
}

Observation UnavailableNotifications::observe(const QString&, Received) {
    return {};
}

ScreenCaptureRun UnavailableScreenCapture::listWindows(Listed listed) {
    auto wanted = std::make_shared<bool>(true);
    scheduler_.post([listed = std::move(listed), wanted, why = failure(why_)] {
        if (*wanted)
            listed(why);
    });
    return ScreenCaptureRun([wanted] { *wanted = false; });
}

ScreenCaptureRun UnavailableScreenCapture::capture(const CapturableWindow&, const QSize&,
                                                   Captured captured) {
    auto wanted = std::make_shared<bool>(true);
    scheduler_.post([captured = std::move(captured), wanted] {
        if (*wanted)
            captured(nullptr);
    });
    return ScreenCaptureRun([wanted] { *wanted = false; });
}

HttpExchange UnavailableHttpClient::send(const HttpRequest&, Completion completion) {
    auto wanted = std::make_shared<bool>(true);
    scheduler_.post([completion = std::move(completion), wanted, why = failure(why_)] {
        if (*wanted)
            completion(why);
    });
    return HttpExchange([wanted] { *wanted = false; });
}

ModelRequest UnavailableLanguageModel::respond(const ModelTask&, const QString&, Duration,
                                               Completion completion) {
    auto wanted = std::make_shared<bool>(true);
    scheduler_.post([completion = std::move(completion), wanted, why = failure(why_)] {
        if (*wanted)
            completion(why);
    });
    return ModelRequest([wanted] { *wanted = false; });
}

ContactFetch UnavailableContactStore::fetch(Fetched fetched) {
    auto wanted = std::make_shared<bool>(true);
    scheduler_.post([fetched = std::move(fetched), wanted] {
        if (*wanted)
            fetched({});
    });
    return ContactFetch([wanted] { *wanted = false; });
}

Outcome UnavailableCrashCapture::install(const QString&) {
    return failure(why_);
}

} // namespace skipnest::platform
