// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Accessibility.h"
#include "platform/BrowserExtensions.h"
#include "platform/ContactStore.h"
#include "platform/CrashCapture.h"
#include "platform/DesktopShortcuts.h"
#include "platform/DistributedNotifications.h"
#include "platform/FileIndex.h"
#include "platform/HttpClient.h"
#include "platform/IconSource.h"
#include "platform/KeyboardCapture.h"
#include "platform/LanguageModel.h"
#include "platform/LoginItem.h"
#include "platform/PanelHost.h"
#include "platform/PointerEvents.h"
#include "platform/ProcessLauncher.h"
#include "platform/Scheduler.h"
#include "platform/ScreenCapture.h"
#include "platform/Screens.h"
#include "platform/ServicesMenu.h"
#include "platform/StatusItem.h"

#include <memory>

namespace skipnest::platform {

// Ports of a machine or session that cannot do the thing. Each is given what availability() says,
// and every request that can fail does, with Failure::Kind::unavailable and that reason.

class UnavailableKeyboardCapture final : public KeyboardCapture {
public:
    explicit UnavailableKeyboardCapture(Availability why) : why_(std::move(why)) {}
    [[nodiscard]] Availability availability() const override { return why_; }
    [[nodiscard]] Result<KeyboardGrab> capture(KeyboardCaptureEvents& events) override;

private:
    Availability why_;
};

// Knows of no combo.
class UnavailableDesktopShortcuts final : public DesktopShortcuts {
public:
    UnavailableDesktopShortcuts(Scheduler& scheduler, Availability why)
        : scheduler_(scheduler), why_(std::move(why)) {}
    [[nodiscard]] Availability availability() const override { return why_; }
    void read(std::function<void(DesktopShortcutReading)> done) override;

private:
    Scheduler& scheduler_;
    Availability why_;
};

// Finds nothing.
class UnavailableFileIndex final : public FileIndex {
public:
    UnavailableFileIndex(Scheduler& scheduler, Availability why)
        : scheduler_(scheduler), why_(std::move(why)) {}
    [[nodiscard]] Availability availability() const override { return why_; }
    [[nodiscard]] State state() const override { return {}; }
    [[nodiscard]] FileSearch search(const FileQuery& query, Found found) override;

private:
    Scheduler& scheduler_;
    Availability why_;
};

class UnavailableIconSource final : public IconSource {
public:
    [[nodiscard]] bool icon(const QString&, int, QImage&) override { return false; }
};

class UnavailableStatusItem final : public StatusItem {
public:
    explicit UnavailableStatusItem(Availability why) : why_(std::move(why)) {}
    [[nodiscard]] Availability availability() const override { return why_; }
    void show(const QString&, StatusItemEvents&) override {}
    void setIcon(const QString&) override {}
    void setToolTip(const QString&) override {}
    void setMenu(const std::vector<StatusMenuEntry>&) override {}
    [[nodiscard]] std::optional<QRect> geometry() const override { return std::nullopt; }

private:
    Availability why_;
};

class UnavailableScreens final : public Screens {
public:
    [[nodiscard]] std::vector<Screen> screens() const override { return {}; }
    [[nodiscard]] std::optional<QPoint> pointer() const override { return std::nullopt; }
    [[nodiscard]] std::optional<QRect> activeWindowFrame() const override { return std::nullopt; }
};

// Of a run that shows nothing: the command line's.
class UnavailablePanels final : public PanelHost {
public:
    void createPopover() override {}
    [[nodiscard]] QSize popoverSize() const override { return {}; }
    [[nodiscard]] bool isPopoverShown() const override { return false; }
    void showPopover(const PopoverRoute&, const QRect&) override {}
    void hidePopover() override {}
    [[nodiscard]] Observation observePopoverHidden(std::function<void()>) override { return {}; }
    void createSwitcherBar() override {}
    void showSwitcherBar(const QRect&) override {}
    void hideSwitcherBar() override {}
    [[nodiscard]] bool isOnboardingShown() const override { return false; }
    void showOnboarding() override {}
    void closeOnboarding() override {}
};

class UnavailableLoginItem final : public LoginItem {
public:
    explicit UnavailableLoginItem(Availability why) : why_(std::move(why)) {}
    [[nodiscard]] Availability availability() const override { return why_; }
    [[nodiscard]] bool isRegistered() const override { return false; }
    Outcome registerItem() override;
    Outcome unregisterItem() override;

private:
    Availability why_;
};

class UnavailableServicesMenu final : public ServicesMenu {
public:
    explicit UnavailableServicesMenu(Availability why) : why_(std::move(why)) {}
    [[nodiscard]] Availability availability() const override { return why_; }
    Outcome refresh() override;

private:
    Availability why_;
};

class UnavailableProcessLauncher final : public ProcessLauncher {
public:
    explicit UnavailableProcessLauncher(Availability why) : why_(std::move(why)) {}
    Outcome launch(const QString& program, const QStringList& arguments) override;

private:
    Availability why_;
};

class UnavailableNotifications final : public DistributedNotifications {
public:
    explicit UnavailableNotifications(Availability why) : why_(std::move(why)) {}
    [[nodiscard]] Availability availability() const override { return why_; }
    [[nodiscard]] Observation observe(const QString& name, Received received) override;

private:
    Availability why_;
};

class UnavailableAccessibility final : public Accessibility {
public:
    explicit UnavailableAccessibility(Availability why) : why_(std::move(why)) {}
    [[nodiscard]] Availability availability() const override { return why_; }
    // Nobody can grant what the system does not have: asking would lead nowhere.
    [[nodiscard]] bool isTrusted() const override { return true; }
    void promptForTrust() override {}
    [[nodiscard]] AccessibilityElement application(ProcessIdentifier) override { return {}; }
    [[nodiscard]] std::optional<AccessibilityValue> attribute(const AccessibilityElement&,
                                                              const QString&) override {
        return std::nullopt;
    }
    int setAttribute(const AccessibilityElement&, const QString&,
                     const AccessibilityValue&) override {
        return AccessibilityStatus::apiDisabled;
    }
    int performAction(const AccessibilityElement&, const QString&) override {
        return AccessibilityStatus::apiDisabled;
    }

private:
    Availability why_;
};

class UnavailableScreenCapture final : public ScreenCapture {
public:
    UnavailableScreenCapture(Scheduler& scheduler, Availability why)
        : scheduler_(scheduler), why_(std::move(why)) {}
    [[nodiscard]] Availability availability() const override { return why_; }
    [[nodiscard]] bool isGranted() const override { return true; }
    void requestAccess() override {}
    void setEnabled(bool) override {}
    [[nodiscard]] ScreenCaptureRun listWindows(Listed listed) override;
    [[nodiscard]] ScreenCaptureRun capture(const CapturableWindow& window, const QSize& size,
                                           Captured captured) override;

private:
    Scheduler& scheduler_;
    Availability why_;
};

// Of a system whose browsers are asked without one: nothing is missing.
class NoBrowserExtensions final : public BrowserExtensions {
public:
    [[nodiscard]] Availability availability() const override { return {}; }
    [[nodiscard]] std::vector<ExtensibleBrowser> browsers() const override { return {}; }
    [[nodiscard]] QString folder() const override { return {}; }
    Outcome install(const ExtensibleBrowser&) override { return Done{}; }
    Outcome remove(const ExtensibleBrowser&) override { return Done{}; }
    [[nodiscard]] Observation observeConnections(std::function<void()>) override { return {}; }
};

// Nobody clicks.
class UnavailablePointerEvents final : public PointerEvents {
public:
    [[nodiscard]] Observation observeClicksOutside(std::function<void()>) override { return {}; }
};

class UnavailableHttpClient final : public HttpClient {
public:
    UnavailableHttpClient(Scheduler& scheduler, Availability why)
        : scheduler_(scheduler), why_(std::move(why)) {}
    [[nodiscard]] Availability availability() const override { return why_; }
    [[nodiscard]] HttpExchange send(const HttpRequest& request, Completion completion) override;

private:
    Scheduler& scheduler_;
    Availability why_;
};

class UnavailableLanguageModel final : public LanguageModel {
public:
    UnavailableLanguageModel(Scheduler& scheduler, Availability why)
        : scheduler_(scheduler), why_(std::move(why)) {}
    [[nodiscard]] Availability availability() const override { return why_; }
    [[nodiscard]] ModelRequest respond(const ModelTask& task, const QString& prompt,
                                       Duration deadline, Completion completion) override;
    void warm(const ModelTask&) override {}

private:
    Scheduler& scheduler_;
    Availability why_;
};

// Nobody is in it.
class UnavailableContactStore final : public ContactStore {
public:
    UnavailableContactStore(Scheduler& scheduler, Availability why)
        : scheduler_(scheduler), why_(std::move(why)) {}
    [[nodiscard]] Availability availability() const override { return why_; }
    [[nodiscard]] Authorization authorization() const override { return Authorization::denied; }
    [[nodiscard]] ContactFetch fetch(Fetched fetched) override;

private:
    Scheduler& scheduler_;
    Availability why_;
};

class UnavailableCrashCapture final : public CrashCapture {
public:
    explicit UnavailableCrashCapture(Availability why) : why_(std::move(why)) {}
    [[nodiscard]] Availability availability() const override { return why_; }
    Outcome install(const QString& recordFile) override;

private:
    Availability why_;
};

} // namespace skipnest::platform
