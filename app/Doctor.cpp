// SPDX-License-Identifier: Apache-2.0
#include "app/Doctor.h"

#include "model/ConfigurationCoding.h"
#include "model/StorageService.h"
#include "platform/Files.h"
#include "platform/HotkeyBackend.h"
#include "platform/KeyEvents.h"
#include "platform/ScriptRunner.h"
#include "platform/Workspace.h"

#include <QJsonObject>
#include <QStringBuilder>

namespace skipnest::app {

using platform::Availability;
using platform::FileKind;

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

} // namespace

std::vector<DoctorRow> doctorRows(const platform::Backend& backend) {
    const platform::Ports& ports = backend.ports();
    return {
        {QStringLiteral("session"), sessionRow(backend)},
        {QStringLiteral("configuration"), configurationRow(ports)},
        {QStringLiteral("global hotkeys"), ports.hotkeys.availability()},
        {QStringLiteral("keyboard events"), ports.keyEvents.availability()},
        {QStringLiteral("applications"), ports.workspace.availability()},
        {QStringLiteral("window cycling"), ports.scripts.availability()},
    };
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
    QString text;
    for (const DoctorRow& row : rows) {
        text += row.name.leftJustified(18) % stateName(row.availability.state) % u'\n';
        for (const QString& line : {row.availability.reason, row.availability.remedy}) {
            if (!line.isEmpty())
                text += QString(18, u' ') % line % u'\n';
        }
    }
    return text;
}

} // namespace skipnest::app
