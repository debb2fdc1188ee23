// SPDX-License-Identifier: Apache-2.0
#include "platform/sim/SimDesktop.h"

#include <array>
#include <utility>

namespace skipnest::sim {

using namespace Qt::StringLiterals;
using platform::AppInfo;
using platform::Availability;
using platform::CarbonModifiers;
using platform::EventFlags;
using platform::Failure;
using platform::FileKind;
using platform::Instant;
using platform::KeyInterceptor;
using platform::Outcome;

namespace {

AppInfo stageInfo() {
    const QString home = u"/Users/person"_s;
    return {
        .pid = {500},
        .bundlePath = u"/Applications/Skipnest.app"_s,
        .bundleIdentifier = u"com.skipnest.Skipnest"_s,
        .version = u"1.0.0"_s,
        .build = u"1"_s,
        .home = home,
        .supportFolder = home + u"/Library/Application Support/Skipnest"_s,
        .logFolder = home + u"/Library/Logs"_s,
        .runtimeFolder = home + u"/Library/Caches/Skipnest"_s,
        .applicationsFolder = u"/Applications"_s,
        .liteConfig = home + u"/Library/Containers/com.skipnest.app/Data/Library/Application "
                             u"Support/Skipnest/config.json"_s,
        .installedApplications = {u"/Applications"_s, u"/System/Applications"_s,
                                  home + u"/Applications"_s},
        .downloadsFolder = home + u"/Downloads"_s,
        .desktopFolder = home + u"/Desktop"_s,
        .documentsFolder = home + u"/Documents"_s,
        .serviceAddress = u"https://service.example"_s,
        .language = u"en"_s,
        .country = u"us"_s,
    };
}

void demand(const Outcome& outcome) {
    if (!outcome)
        qFatal("%s", qUtf8Printable(outcome.failure().detail));
}

QString parentOf(const QString& path) {
    return path.left(path.lastIndexOf(u'/'));
}

} // namespace

EventFlags eventFlags(std::uint32_t carbonModifiers) {
    constexpr auto pairs = std::to_array<std::pair<std::uint32_t, std::uint64_t>>({
        {CarbonModifiers::command, EventFlags::command},
        {CarbonModifiers::shift, EventFlags::shift},
        {CarbonModifiers::option, EventFlags::alternate},
        {CarbonModifiers::control, EventFlags::control},
    });
    EventFlags flags;
    for (const auto& [carbon, flag] : pairs)
        if ((carbonModifiers & carbon) != 0)
            flags.bits |= flag;
    return flags;
}

SimDesktop::SimDesktop()
    : wallClock_(scheduler_), executor_(scheduler_), journal_(scheduler_),
      defaults_(files_, stageInfo().supportFolder + u"/defaults.json"_s),
      applications_(
          scheduler_, journal_, files_,
          {stageInfo().pid, stageInfo().bundleIdentifier, stageInfo().bundlePath, u"Skipnest"_s}),
      hotkeys_(scheduler_), keyEvents_(journal_), scripts_(scheduler_, journal_, applications_),
      bookmarks_(files_), alerts_(scheduler_, journal_), instances_(journal_),
      keyboardCapture_(scheduler_), desktopShortcuts_(scheduler_), fileIndex_(scheduler_),
      panels_(journal_), loginItem_(journal_), processes_(journal_), http_(scheduler_, journal_),
      languageModel_(scheduler_, journal_), contacts_(scheduler_),
      accessibility_(journal_, applications_), screenCapture_(scheduler_, journal_, applications_),
      ports_{.app = stageInfo(),
             .scheduler = scheduler_,
             .executor = executor_,
             .wallClock = wallClock_,
             .diagnostics = journal_,
             .hotkeys = hotkeys_,
             .keyboardLayout = layout_,
             .keyEvents = keyEvents_,
             .workspace = applications_,
             .applications = applications_,
             .scripts = scripts_,
             .bookmarks = bookmarks_,
             .files = files_,
             .defaults = defaults_,
             .alerts = alerts_,
             .instances = instances_,
             .peers = instances_,
             .keyboardCapture = keyboardCapture_,
             .desktopShortcuts = desktopShortcuts_,
             .fileIndex = fileIndex_,
             .icons = icons_,
             .statusItem = statusItem_,
             .screens = screens_,
             .panels = panels_,
             .loginItem = loginItem_,
             .servicesMenu = servicesMenu_,
             .processes = processes_,
             .distributedNotifications = distributedNotifications_,
             .http = http_,
             .crashCapture = crashCapture_,
             .accessibility = accessibility_,
             .screenCapture = screenCapture_,
             .pointer = pointer_,
             .browserExtensions = browserExtensions_,
             .languageModel = languageModel_,
             .contacts = contacts_} {
    for (const QString& folder :
         {u"Downloads"_s, u"Documents"_s, u"Desktop"_s, u"Pictures"_s, u"Movies"_s, u"Music"_s})
        (void)files_.createFolder(ports_.app.home + u'/' + folder);
    (void)files_.createFolder(ports_.app.bundlePath);
}

SimDesktop::~SimDesktop() = default;

QStringList SimDesktop::runningTimers() const {
    return scheduler_.runningTimers();
}

void SimDesktop::advance(platform::Duration duration) {
    scheduler_.advanceTo(now() + duration);
}

void SimDesktop::advanceTo(Instant until) {
    scheduler_.advanceTo(until);
}

void SimDesktop::runPosted() {
    scheduler_.runPosted();
}

void SimDesktop::installApp(const SimApp& app) {
    runPosted();
    applications_.install(app);
    runPosted();
}

void SimDesktop::bringToFront(const QString& app) {
    runPosted();
    demand(applications_.bringToFront(app));
    runPosted();
}

void SimDesktop::quitApp(const QString& app) {
    runPosted();
    demand(applications_.quit(app));
    runPosted();
}

Outcome SimDesktop::addFile(const QString& path, const QByteArray& bytes) {
    if (const Outcome made = addFolder(parentOf(path)); !made)
        return made;
    if (files_.kind(path) == FileKind::folder)
        return Failure{Failure::Kind::refused, u"%1 is a folder"_s.arg(path)};
    return files_.write(path, bytes);
}

Outcome SimDesktop::addFolder(const QString& path) {
    return path.isEmpty() ? Outcome(platform::Done{}) : files_.createFolder(path);
}

Outcome SimDesktop::removePath(const QString& path) {
    return files_.remove(path);
}

bool SimDesktop::pressHotkey(HotkeyCombo combo, Instant seen) {
    runPosted();
    keyEvents_.setModifiersDown(eventFlags(combo.carbonModifiers));
    keyEvents_.pressKey(seen);
    const platform::KeyPress press{combo.keyCode, eventFlags(combo.carbonModifiers),
                                   layout_.character(combo.keyCode).value_or(QString()), false,
                                   seen};
    const bool taken = keyEvents_.intercepted(press) == KeyInterceptor::Verdict::passed &&
                       hotkeys_.press(combo, seen);
    runPosted();
    return taken;
}

void SimDesktop::pressKey(Instant seen) {
    constexpr std::uint16_t nameless = 65535;
    (void)pressKey(platform::KeyPress{nameless, {}, {}, false, seen});
}

bool SimDesktop::pressKey(const platform::KeyPress& press) {
    runPosted();
    keyEvents_.pressKey(press.time);
    const bool taken = keyEvents_.intercepted(press) == KeyInterceptor::Verdict::consumed;
    runPosted();
    return taken;
}

void SimDesktop::clickOutside() {
    runPosted();
    panels_.clickOutside();
    pointer_.clickOutside();
    runPosted();
}

void SimDesktop::changeModifiers(std::uint16_t keyCode, EventFlags down, Instant seen) {
    runPosted();
    keyEvents_.changeModifiers({seen, keyCode, down});
    runPosted();
}

void SimDesktop::pressAlertButton(const QString& button) {
    runPosted();
    alerts_.press(button);
    runPosted();
}

void SimDesktop::setTrust(const Trust& trust) {
    trust_ = trust;
    screenCapture_.setGranted(trust.screenRecording);
    accessibility_.setTrusted(trust.accessibility);
    Availability keys;
    if (!trust.accessibility)
        keys = {Availability::State::unavailable,
                u"Skipnest is not allowed to use Accessibility."_s,
                u"Allow it in System Settings, Privacy & Security, Accessibility."_s};
    keyEvents_.setAvailability(keys);
}

} // namespace skipnest::sim
