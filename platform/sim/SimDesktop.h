// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Backend.h"
#include "platform/JsonDefaults.h"
#include "platform/UnavailablePorts.h"
#include "platform/UsKeyboardLayout.h"
#include "platform/sim/Journal.h"
#include "platform/sim/MemoryFiles.h"
#include "platform/sim/SimAccessibility.h"
#include "platform/sim/SimAlerts.h"
#include "platform/sim/SimApplications.h"
#include "platform/sim/SimBookmarks.h"
#include "platform/sim/SimBrowserExtensions.h"
#include "platform/sim/SimContactStore.h"
#include "platform/sim/SimFileIndex.h"
#include "platform/sim/SimHotkeys.h"
#include "platform/sim/SimHttp.h"
#include "platform/sim/SimInstances.h"
#include "platform/sim/SimKeyEvents.h"
#include "platform/sim/SimKeyboardCapture.h"
#include "platform/sim/SimLanguageModel.h"
#include "platform/sim/SimPointerEvents.h"
#include "platform/sim/SimScreenCapture.h"
#include "platform/sim/SimScripts.h"
#include "platform/sim/SimShell.h"
#include "platform/sim/VirtualExecutor.h"
#include "platform/sim/VirtualScheduler.h"
#include "platform/sim/VirtualWallClock.h"

namespace skipnest::sim {

enum class Consent { granted, denied, notDetermined };

// What the person has allowed the program.
struct Trust {
    bool accessibility = true; // without it no key can be listened to or posted
    bool screenRecording = true;
    Consent speech = Consent::granted;
    Consent microphone = Consent::granted;
    Consent contacts = Consent::granted;
};

// The languages of the person and of the recogniser.
struct Locale {
    QString current = QStringLiteral("en_US");
    QStringList preferred = {QStringLiteral("en-US")};
    QStringList supported = {QStringLiteral("en-US")};
    QStringList unavailable;
};

// A whole desktop in memory behind the ports, with a clock that moves only when told to. A test, or
// a trace, says what the person and the other programs do, and reads in journal() what the program
// did:
//
//     SimDesktop desk;
//     desk.installApp({.name = "Notes", .path = "/Applications/Notes.app"});
//     ... something that takes desk.ports() ...
//     desk.pressHotkey(combo);
//     EXPECT_THAT(desk.journal().calls(), ElementsAre("openApplication
//     path=/Applications/Notes.app"));
//
// Every act of the person first runs what the program has posted and afterwards what it posts in
// answer, so that the desk is at rest between acts. Time passes only in advance() and advanceTo().
// What can go wrong is set on the parts: hotkeys().refuse(), applications().ignoreHide(), ...
class SimDesktop final : public platform::Backend {
public:
    SimDesktop();
    ~SimDesktop() override;
    SimDesktop(const SimDesktop&) = delete;
    SimDesktop& operator=(const SimDesktop&) = delete;

    [[nodiscard]] const platform::Ports& ports() const override { return ports_; }
    [[nodiscard]] QString session() const override { return QStringLiteral("simulated"); }
    [[nodiscard]] QStringList runningTimers() const override;

    [[nodiscard]] platform::Instant now() const { return scheduler_.now(); }
    void advance(platform::Duration duration);
    void advanceTo(platform::Instant until);
    void runPosted();
    // Set when the program made itself busy for ever (see VirtualScheduler).
    [[nodiscard]] std::optional<QString> fault() const { return scheduler_.fault(); }

    void installApp(const SimApp& app);
    // Both abort where the application does not run: the script of a test is wrong then.
    void bringToFront(const QString& app);
    void quitApp(const QString& app);
    [[nodiscard]] QString frontApp() const { return applications_.frontName(); }
    // With the folders above them. Failing means that something else is in the way.
    platform::Outcome addFile(const QString& path, const QByteArray& bytes = {});
    platform::Outcome addFolder(const QString& path);
    // A folder goes with all that is in it.
    platform::Outcome removePath(const QString& path);

    // The press of a combo: whoever listens to keys sees a key, whoever intercepts keys may take
    // it, else the hotkey fires if it is registered. Its modifiers count as held until the next
    // changeModifiers(). `seen` is for a press that waited while the program was blocked. True
    // where a registration took it.
    bool pressHotkey(HotkeyCombo combo) { return pressHotkey(combo, now()); }
    bool pressHotkey(HotkeyCombo combo, platform::Instant seen);
    // Some key without a hotkey goes down.
    void pressKey() { pressKey(now()); }
    void pressKey(platform::Instant seen);
    // A key of which whoever intercepts keys learns all. True where it was taken.
    bool pressKey(const platform::KeyPress& press);
    // A modifier key went down or up; `down` are those held after it.
    void changeModifiers(std::uint16_t keyCode, platform::EventFlags down) {
        changeModifiers(keyCode, down, now());
    }
    void changeModifiers(std::uint16_t keyCode, platform::EventFlags down, platform::Instant seen);
    // A mouse button goes down outside every window of the program.
    void clickOutside();
    // See SimAlerts.
    void pressAlertButton(const QString& button);

    // The program as it would be when started from another place.
    void setBundlePath(const QString& path) { ports_.app.bundlePath = path; }
    // A build that talks to this web service; empty for none.
    void setServiceAddress(const QString& address) { ports_.app.serviceAddress = address; }
    void setTrust(const Trust& trust);
    [[nodiscard]] const Trust& trust() const { return trust_; }
    void setLocale(const Locale& locale) { locale_ = locale; }
    [[nodiscard]] const Locale& locale() const { return locale_; }

    [[nodiscard]] Journal& journal() { return journal_; }
    [[nodiscard]] VirtualScheduler& scheduler() { return scheduler_; }
    [[nodiscard]] VirtualWallClock& wallClock() { return wallClock_; }
    [[nodiscard]] platform::sim::MemoryFiles& files() { return files_; }
    [[nodiscard]] platform::UserDefaults& defaults() { return defaults_; }
    [[nodiscard]] SimApplications& applications() { return applications_; }
    [[nodiscard]] SimAccessibility& accessibility() { return accessibility_; }
    [[nodiscard]] SimScreenCapture& screenCapture() { return screenCapture_; }
    [[nodiscard]] SimHotkeys& hotkeys() { return hotkeys_; }
    [[nodiscard]] SimKeyEvents& keyEvents() { return keyEvents_; }
    [[nodiscard]] SimScripts& scripts() { return scripts_; }
    [[nodiscard]] SimBookmarks& bookmarks() { return bookmarks_; }
    [[nodiscard]] SimAlerts& alerts() { return alerts_; }
    [[nodiscard]] SimInstances& instances() { return instances_; }
    [[nodiscard]] SimKeyboardCapture& keyboardCapture() { return keyboardCapture_; }
    [[nodiscard]] SimDesktopShortcuts& desktopShortcuts() { return desktopShortcuts_; }
    [[nodiscard]] SimFileIndex& fileIndex() { return fileIndex_; }
    [[nodiscard]] SimStatusItem& statusItem() { return statusItem_; }
    [[nodiscard]] SimScreens& screens() { return screens_; }
    [[nodiscard]] SimPanels& panels() { return panels_; }
    [[nodiscard]] SimPointerEvents& pointer() { return pointer_; }
    [[nodiscard]] SimBrowserExtensions& browserExtensions() { return browserExtensions_; }
    [[nodiscard]] SimLoginItem& loginItem() { return loginItem_; }
    [[nodiscard]] SimServicesMenu& servicesMenu() { return servicesMenu_; }
    [[nodiscard]] SimDistributedNotifications& distributedNotifications() {
        return distributedNotifications_;
    }
    [[nodiscard]] SimHttp& http() { return http_; }
    [[nodiscard]] SimLanguageModel& languageModel() { return languageModel_; }
    [[nodiscard]] SimContactStore& contacts() { return contacts_; }
    [[nodiscard]] SimCrashCapture& crashCapture() { return crashCapture_; }
    [[nodiscard]] const platform::AppInfo& appInfo() const { return ports_.app; }

private:
    VirtualScheduler scheduler_;
    VirtualWallClock wallClock_;
    VirtualExecutor executor_;
    Journal journal_;
    platform::sim::MemoryFiles files_;
    platform::JsonDefaults defaults_;
    platform::UsKeyboardLayout layout_;
    SimApplications applications_;
    SimHotkeys hotkeys_;
    SimKeyEvents keyEvents_;
    SimScripts scripts_;
    SimBookmarks bookmarks_;
    SimAlerts alerts_;
    SimInstances instances_;
    SimKeyboardCapture keyboardCapture_;
    SimDesktopShortcuts desktopShortcuts_;
    SimFileIndex fileIndex_;
    SimIcons icons_;
    SimStatusItem statusItem_;
    SimScreens screens_;
    SimPanels panels_;
    SimLoginItem loginItem_;
    SimServicesMenu servicesMenu_;
    SimProcessLauncher processes_;
    SimDistributedNotifications distributedNotifications_;
    SimHttp http_;
    SimLanguageModel languageModel_;
    SimContactStore contacts_;
    SimCrashCapture crashCapture_;
    SimAccessibility accessibility_;
    SimScreenCapture screenCapture_;
    SimPointerEvents pointer_;
    SimBrowserExtensions browserExtensions_;
    platform::Ports ports_;
    Trust trust_;
    Locale locale_;
};

// The modifiers of the hotkey interface as keyboard events carry them.
[[nodiscard]] platform::EventFlags eventFlags(std::uint32_t carbonModifiers);

} // namespace skipnest::sim
