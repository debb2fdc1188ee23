// SPDX-License-Identifier: Apache-2.0
#include "platform/macos/WorkspaceBridge.h"

#include "platform/macos/CocoaText.h"

#import <AppKit/AppKit.h>

#include <utility>

namespace skipnest::macos {
namespace {

ApplicationRecord record(NSRunningApplication* application) {
    return {application.processIdentifier, plainText(application.bundleIdentifier),
            plainText(application.bundleURL.path), plainText(application.localizedName)};
}

OpenAnswer openAnswer(NSError* error) {
    if (error == nil)
        return {.opened = true, .errorDomain = {}, .errorCode = 0, .errorText = {}};
    return {.opened = false,
            .errorDomain = plainText(error.domain),
            .errorCode = error.code,
            .errorText = plainText(error.localizedDescription)};
}

using Completion = void (^)(NSRunningApplication*, NSError*);

// Keeps the system from putting us to sleep until the request is answered. The answer comes on a
// queue of the system's own and hops to the main queue.
Completion completion(WorkspaceBridge::Opened opened) {
    NSProcessInfo* process = NSProcessInfo.processInfo;
    id<NSObject> activity = [process beginActivityWithOptions:NSActivityUserInitiated
                                                       reason:@"Opening shortcut target"];
    return ^(NSRunningApplication*, NSError* error) {
      const OpenAnswer answer = openAnswer(error);
      dispatch_async(dispatch_get_main_queue(), ^{
        [process endActivity:activity];
        opened(answer);
      });
    };
}

NSWorkspaceOpenConfiguration* activating() {
    NSWorkspaceOpenConfiguration* configuration = [NSWorkspaceOpenConfiguration configuration];
    configuration.activates = YES;
    return configuration;
}

class AppKitWorkspace final : public WorkspaceBridge {
public:
    AppKitWorkspace() = default;
    AppKitWorkspace(const AppKitWorkspace&) = delete;
    AppKitWorkspace& operator=(const AppKitWorkspace&) = delete;
    ~AppKitWorkspace() override {
        remove(activations_);
        remove(terminations_);
    }

    std::vector<ApplicationRecord> running() const override {
        std::vector<ApplicationRecord> records;
        NSArray<NSRunningApplication*>* applications = workspace_.runningApplications;
        records.reserve(applications.count);
        for (NSRunningApplication* application in applications)
            records.push_back(record(application));
        return records;
    }

    std::optional<ApplicationRecord> frontmost() const override {
        NSRunningApplication* application = workspace_.frontmostApplication;
        if (application == nil)
            return std::nullopt;
        return record(application);
    }

    std::string bundleIdentifier(const std::string& path) const override {
        return plainText([NSBundle bundleWithURL:fileUrl(path)].bundleIdentifier);
    }

    std::string defaultApplication(const std::string& path) const override {
        return plainText([workspace_ URLForApplicationToOpenURL:fileUrl(path)].path);
    }

    void openApplication(const std::string& path, Opened opened) override {
        [workspace_ openApplicationAtURL:fileUrl(path)
                           configuration:activating()
                       completionHandler:completion(std::move(opened))];
    }

    void openFile(const std::string& path, Opened opened) override {
        [workspace_ openURL:fileUrl(path)
                configuration:activating()
            completionHandler:completion(std::move(opened))];
    }

    void openAddress(const std::string& address, Opened opened) override {
        [workspace_ openURL:[NSURL URLWithString:cocoaText(address)]
                configuration:activating()
            completionHandler:completion(std::move(opened))];
    }

    void observeActivations(Activated activated) override {
        remove(activations_);
        activations_ = observe(NSWorkspaceDidActivateApplicationNotification,
                               [activated = std::move(activated)](NSNotification* notice) {
                                   id application = notice.userInfo[NSWorkspaceApplicationKey];
                                   if ([application isKindOfClass:[NSRunningApplication class]])
                                       activated(record(application));
                               });
    }

    void observeTerminations(std::function<void()> terminated) override {
        remove(terminations_);
        terminations_ =
            observe(NSWorkspaceDidTerminateApplicationNotification,
                    [terminated = std::move(terminated)](NSNotification*) { terminated(); });
    }

private:
    id<NSObject> observe(NSNotificationName name, std::function<void(NSNotification*)> told) const {
        return [workspace_.notificationCenter addObserverForName:name
                                                          object:nil
                                                           queue:NSOperationQueue.mainQueue
                                                      usingBlock:^(NSNotification* notice) {
                                                        told(notice);
                                                      }];
    }

    void remove(id<NSObject> observer) const {
        if (observer != nil)
            [workspace_.notificationCenter removeObserver:observer];
    }

    NSWorkspace* workspace_ = NSWorkspace.sharedWorkspace;
    id<NSObject> activations_ = nil;
    id<NSObject> terminations_ = nil;
};

} // namespace

std::unique_ptr<WorkspaceBridge> appKitWorkspace() {
    return std::make_unique<AppKitWorkspace>();
}

} // namespace skipnest::macos
