// SPDX-License-Identifier: Apache-2.0
#include "app/Doctor.h"

#include "app/LocationCheck.h"
#include "model/ConfigurationCoding.h"
#include "model/StorageService.h"
#include "platform/Accessibility.h"
#include "platform/BrowserExtensions.h"
#include "platform/ContactStore.h"
#include "platform/CrashCapture.h"
#include "platform/DesktopShortcuts.h"
#include "platform/DistributedNotifications.h"
#include "platform/FileIndex.h"
#include "platform/Files.h"
#include "platform/HotkeyBackend.h"
#include "platform/KeyEvents.h"
#include "platform/KeyboardCapture.h"
#include "platform/LanguageModel.h"
#include "platform/LoginItem.h"
#include "platform/ScreenCapture.h"
#include "platform/ScriptRunner.h"
#include "platform/ServicesMenu.h"
#include "platform/StatusItem.h"
#include "platform/WebService.h"
#include "platform/Workspace.h"

#include <QJsonObject>
#include <QStringBuilder>

namespace skipnest::app {

using platform::Availability;
using platform::FileKind;

namespace {

Availability sessionRow(const platform::Backend& backend) {
    if (backend.session() == u"x11")
        return {};
    return {Availability::State::limited,
            u"The session is \"" % backend.session() % u"\", not X11.",
            QStringLiteral("Bind `skipnest jump NAME` in the desktop's own keyboard settings.")};
}

Availability configurationRow(const platform::Ports& ports) {
    const QString path = ports.app.supportFolder + QStringLiteral("/config.json");
    if (ports.files.kind(path) == FileKind::none)
        return {};
    const auto bytes = ports.files.read(path, model::largestConfiguration);
    const auto decoded = bytes ? model::decodeConfiguration(*bytes)
                               : platform::Result<model::AppConfiguration>(bytes.failure());
    if (decoded)
        return {};
    return {Availability::State::limited,
            u"config.json does not decode: " % decoded.failure().detail,
            QStringLiteral("`skipnest restore` puts back the newest daily snapshot.")};
}

Availability searchRow(const platform::FileIndex& index) {
    Availability row = index.availability();
    if (row.state == Availability::State::limited)
        row.reason += QStringLiteral(" %1 names are known.").arg(index.state().items);
    return row;
}

Availability locationRow(const platform::AppInfo& app) {
    if (app.applicationsFolder.isEmpty())
        return {Availability::State::unavailable,
                QStringLiteral("Programs run from anywhere on this system, so nothing is checked."),
                QStringLiteral("None is needed.")};
    if (misplacement(app))
        return {Availability::State::limited,
                u"Skipnest runs from " % app.bundlePath % u", where permissions do not last.",
                u"Move it to " % app.applicationsFolder % u" and start it there."};
    return {};
}

Availability serviceRow(const platform::Ports& ports) {
    return platform::WebService(ports.http, ports.scheduler, ports.app.serviceAddress)
        .availability();
}

// One row a browser, and one before them where none can be reached at all.
void addBrowserRows(std::vector<DoctorRow>& rows, const platform::BrowserExtensions& extensions) {
    const std::vector<platform::ExtensibleBrowser> browsers = extensions.browsers();
    const Availability all = extensions.availability();
    if (browsers.empty() || all.state != Availability::State::available) {
        rows.push_back({QStringLiteral("browser tabs"), all});
        return;
    }
    for (const platform::ExtensibleBrowser& browser : browsers)
        rows.push_back({u"tabs of " % titleOf(browser),
                        platform::tabsAvailability(browser, extensions.folder())});
}

} // namespace

QString stateName(Availability::State state) {
    switch (state) {
    case Availability::State::available:
        return QStringLiteral("available");
    case Availability::State::limited:
        return QStringLiteral("limited");
    case Availability::State::unavailable:
        return QStringLiteral("unavailable");
    }
    Q_UNREACHABLE();
}

std::vector<DoctorRow> doctorRows(const platform::Backend& backend) {
    const platform::Ports& ports = backend.ports();
    std::vector<DoctorRow> rows{
        {QStringLiteral("session"), sessionRow(backend)},
        {QStringLiteral("configuration"), configurationRow(ports)},
        {QStringLiteral("global hotkeys"), ports.hotkeys.availability()},
        {QStringLiteral("keyboard events"), ports.keyEvents.availability()},
        {QStringLiteral("applications"), ports.workspace.availability()},
        {QStringLiteral("windows of programs"), ports.accessibility.availability()},
        {QStringLiteral("window previews"), ports.screenCapture.availability()},
        {QStringLiteral("window cycling"), ports.scripts.availability()},
        {QStringLiteral("status item"), ports.statusItem.availability()},
        {QStringLiteral("recording a combo"), ports.keyboardCapture.availability()},
        {QStringLiteral("desktop's shortcuts"), ports.desktopShortcuts.availability()},
        {QStringLiteral("target search"), searchRow(ports.fileIndex)},
        {QStringLiteral("launch at login"), ports.loginItem.availability()},
        {QStringLiteral("file-manager menu"), ports.servicesMenu.availability()},
        {QStringLiteral("debug hooks"), ports.distributedNotifications.availability()},
        {QStringLiteral("program's place"), locationRow(ports.app)},
        {QStringLiteral("web service"), serviceRow(ports)},
        {QStringLiteral("language model"), ports.languageModel.availability()},
        {QStringLiteral("contacts"), ports.contacts.availability()},
        {QStringLiteral("crash capture"), ports.crashCapture.availability()},
    };
    addBrowserRows(rows, ports.browserExtensions);
    return rows;
}

QJsonArray doctorJson(const std::vector<DoctorRow>& rows) {
    QJsonArray array;
    for (const DoctorRow& row : rows)
        array.append(QJsonObject{{QStringLiteral("name"), row.name},
                                 {QStringLiteral("state"), stateName(row.availability.state)},
                                 {QStringLiteral("reason"), row.availability.reason},
                                 {QStringLiteral("remedy"), row.availability.remedy}});
    return array;
}

QString doctorText(const std::vector<DoctorRow>& rows) {
    constexpr qsizetype column = 27;
    QString text;
    for (const DoctorRow& row : rows) {
        text += row.name.leftJustified(column) % stateName(row.availability.state) % u'\n';
        for (const QString& line : {row.availability.reason, row.availability.remedy}) {
            if (!line.isEmpty())
                text += QString(column, u' ') % line % u'\n';
        }
    }
    return text;
}

} // namespace skipnest::app
