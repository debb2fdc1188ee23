// SPDX-License-Identifier: Apache-2.0
#include "platform/macos/ApplicationBridge.h"

#import <AppKit/AppKit.h>

namespace skipnest::macos {
namespace {

// Nil where no application has this process id, or where it has ended.
NSRunningApplication* running(std::int64_t pid) {
    NSRunningApplication* application =
        [NSRunningApplication runningApplicationWithProcessIdentifier:static_cast<pid_t>(pid)];
    return application.terminated ? nil : application;
}

RequestAnswer answer(BOOL taken) {
    return taken ? RequestAnswer::taken : RequestAnswer::refused;
}

NSApplicationActivationOptions options(Activation activation) {
    switch (activation) {
    case Activation::keyWindow:
        return 0;
    case Activation::allWindows:
        return NSApplicationActivateAllWindows;
    case Activation::ignoringOtherApps:
        return NSApplicationActivateIgnoringOtherApps;
    }
    return 0;
}

void activateOurselves() {
    NSApplication* ourselves = NSApplication.sharedApplication;
    if (@available(macOS 14.0, *))
        [ourselves activate];
    else
        [ourselves activateIgnoringOtherApps:YES];
}

// From macOS 14 on an application comes to the front when the one in front gives way, so we do
// before we ask. It has no effect while we are not in front.
void giveWayTo(NSRunningApplication* application) {
    NSApplication* ourselves = NSApplication.sharedApplication;
    if (@available(macOS 14.0, *))
        [ourselves yieldActivationToApplication:application];
}

class AppKitApplications final : public ApplicationBridge {
public:
    std::optional<ProcessState> state(std::int64_t pid) const override {
        NSRunningApplication* application = running(pid);
        if (application == nil)
            return std::nullopt;
        return ProcessState{static_cast<bool>(application.active),
                            static_cast<bool>(application.hidden)};
    }

    RequestAnswer activate(std::int64_t pid, Activation activation) override {
        NSRunningApplication* application = running(pid);
        if (application == nil)
            return RequestAnswer::notRunning;
        if ([application isEqual:NSRunningApplication.currentApplication]) {
            activateOurselves();
            return RequestAnswer::taken;
        }
        giveWayTo(application);
        return answer([application activateWithOptions:options(activation)]);
    }

    RequestAnswer hide(std::int64_t pid) override {
        NSRunningApplication* application = running(pid);
        return application == nil ? RequestAnswer::notRunning : answer([application hide]);
    }

    RequestAnswer terminate(std::int64_t pid) override {
        NSRunningApplication* application = running(pid);
        return application == nil ? RequestAnswer::notRunning : answer([application terminate]);
    }

    RequestAnswer forceTerminate(std::int64_t pid) override {
        NSRunningApplication* application = running(pid);
        return application == nil ? RequestAnswer::notRunning
                                  : answer([application forceTerminate]);
    }
};

} // namespace

std::unique_ptr<ApplicationBridge> appKitApplications() {
    return std::make_unique<AppKitApplications>();
}

} // namespace skipnest::macos
