// SPDX-License-Identifier: Apache-2.0
#include "ui/settings/AvailabilityRows.h"

#include "platform/DesktopShortcuts.h"
#include "platform/FileIndex.h"
#include "platform/HotkeyBackend.h"
#include "platform/KeyEvents.h"
#include "platform/KeyboardCapture.h"
#include "platform/LoginItem.h"
#include "platform/Ports.h"
#include "platform/ScriptRunner.h"
#include "platform/ServicesMenu.h"
#include "platform/StatusItem.h"
#include "platform/Workspace.h"

#include <QStringBuilder>

namespace skipnest::ui {

using platform::Availability;

namespace {

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

} // namespace

AvailabilityRows::AvailabilityRows(const platform::Ports& ports, QObject* parent)
    : KeyedListModel(parent), ports_(ports) {}

void AvailabilityRows::update() {
    setRows({
        {tr("Shortcuts from everywhere"), ports_.hotkeys.availability()},
        {tr("Recording keys"), ports_.keyboardCapture.availability()},
        {tr("The desktop's own keys"), ports_.desktopShortcuts.availability()},
        {tr("Key gestures"), ports_.keyEvents.availability()},
        {tr("Applications"), ports_.workspace.availability()},
        {tr("Stepping through windows"), ports_.scripts.availability()},
        {tr("Search for targets"), ports_.fileIndex.availability()},
        {tr("Icon in the menu bar or tray"), ports_.statusItem.availability()},
        {tr("Launch at login"), ports_.loginItem.availability()},
        {tr("Entry in file managers"), ports_.servicesMenu.availability()},
    });
}

QString AvailabilityRows::report() const {
    QStringList lines;
    for (const Row& row : rows())
        lines.append(QString(row.title % u": " % stateName(row.availability.state) % u' ' %
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
        return stateName(row.availability.state);
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
