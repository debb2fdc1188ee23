// SPDX-License-Identifier: Apache-2.0
#include "ui/settings/AvailabilityRows.h"

#include "app/Doctor.h"
#include "platform/Accessibility.h"
#include "platform/BrowserExtensions.h"
#include "platform/ContactStore.h"
#include "platform/CrashCapture.h"
#include "platform/DesktopShortcuts.h"
#include "platform/FileIndex.h"
#include "platform/HotkeyBackend.h"
#include "platform/KeyEvents.h"
#include "platform/KeyboardCapture.h"
#include "platform/LanguageModel.h"
#include "platform/LoginItem.h"
#include "platform/Ports.h"
#include "platform/ScreenCapture.h"
#include "platform/ScriptRunner.h"
#include "platform/ServicesMenu.h"
#include "platform/StatusItem.h"
#include "platform/WebService.h"
#include "platform/Workspace.h"

#include <QStringBuilder>

namespace skipnest::ui {

AvailabilityRows::AvailabilityRows(const platform::Ports& ports, QObject* parent)
    : KeyedListModel(parent), ports_(ports) {}

void AvailabilityRows::update() {
    std::vector<Row> rows{
        {tr("Shortcuts from everywhere"), ports_.hotkeys.availability()},
        {tr("Recording keys"), ports_.keyboardCapture.availability()},
        {tr("The desktop's own keys"), ports_.desktopShortcuts.availability()},
        {tr("Key gestures"), ports_.keyEvents.availability()},
        {tr("Applications"), ports_.workspace.availability()},
        {tr("Windows of programs"), ports_.accessibility.availability()},
        {tr("Pictures of windows"), ports_.screenCapture.availability()},
        {tr("Stepping through windows"), ports_.scripts.availability()},
        {tr("Search for targets"), ports_.fileIndex.availability()},
        {tr("Icon in the menu bar or tray"), ports_.statusItem.availability()},
        {tr("Launch at login"), ports_.loginItem.availability()},
        {tr("Entry in file managers"), ports_.servicesMenu.availability()},
        {tr("Web service"),
         platform::WebService(ports_.http, ports_.scheduler, ports_.app.serviceAddress)
             .availability()},
        {tr("Language model"), ports_.languageModel.availability()},
        {tr("Contacts"), ports_.contacts.availability()},
        {tr("Recording a crash"), ports_.crashCapture.availability()},
    };
    for (const auto& browser : ports_.browserExtensions.browsers())
        rows.push_back({tr("Tabs of %1").arg(titleOf(browser)),
                        tabsAvailability(browser, ports_.browserExtensions.folder())});
    setRows(rows);
}

QString AvailabilityRows::report() const {
    QStringList lines;
    for (const Row& row : rows())
        lines.append(QString(row.title % u": " % app::stateName(row.availability.state) % u' ' %
                             row.availability.reason)
                         .trimmed());
    return lines.join(u'\n');
}

QVariant AvailabilityRows::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Row& row = rows()[static_cast<std::size_t>(index.row())];
    switch (role) {
    case titleRole:
        return row.title;
    case stateRole:
        return app::stateName(row.availability.state);
    case reasonRole:
        return row.availability.reason;
    case remedyRole:
        return row.availability.remedy;
    default:
        return {};
    }
}

QHash<int, QByteArray> AvailabilityRows::roleNames() const {
    return {
        {titleRole, "title"}, {stateRole, "state"}, {reasonRole, "reason"}, {remedyRole, "remedy"}};
}

} // namespace skipnest::ui
