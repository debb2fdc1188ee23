// SPDX-License-Identifier: Apache-2.0
#include "app/TransferVerbs.h"

#include "model/ConfigurationCoding.h"

#include <QJsonArray>
#include <QStringBuilder>

namespace skipnest::app {

using platform::Failure;

namespace {

// The person is told to pick another file; who sits at a terminal may want to know what is wrong
// with this one.
QString withReason(const Failure& failure, platform::Files& files, const QString& path) {
    if (failure.kind != Failure::Kind::malformed)
        return failure.detail;
    const auto bytes = files.read(path, model::largestConfiguration);
    if (!bytes)
        return failure.detail;
    const auto decoded = model::decodeConfiguration(*bytes);
    return decoded ? failure.detail : failure.detail % u" (" % decoded.failure().detail % u')';
}

} // namespace

ControlReply exportVerb(model::ShortcutTransfer& transfer, const QJsonObject& request) {
    const QJsonValue path = request.value(u"path");
    if (path.isUndefined() || path.isNull())
        return ControlReply::success(
            QJsonObject{{QStringLiteral("document"), QString::fromUtf8(transfer.exported())}});
    if (!path.toString().startsWith(u'/'))
        return ControlReply::failure(QStringLiteral("export needs an absolute path"));
    const auto written = transfer.exportTo(path.toString());
    if (!written)
        return ControlReply::failure(written.failure().detail);
    return ControlReply::success(QJsonObject{{QStringLiteral("path"), *written}});
}

ControlReply importVerb(model::ShortcutTransfer& transfer, const model::ShortcutListViewModel& list,
                        platform::Files& files, const QJsonObject& request) {
    const QString path = request.value(u"path").toString();
    if (!path.startsWith(u'/'))
        return ControlReply::failure(QStringLiteral("import needs an absolute path"));
    const auto report = transfer.importFile(path);
    if (!report)
        return ControlReply::failure(withReason(report.failure(), files, path));
    QJsonArray unconfirmed;
    for (const model::ShortcutItem& item : list.shortcuts()) {
        if (!list.isConfirmed(item.id))
            unconfirmed.append(item.name);
    }
    return ControlReply::success(QJsonObject{
        {QStringLiteral("imported"), report->takenOver()},
        {QStringLiteral("added"), report->added},
        {QStringLiteral("updated"), report->updated},
        {QStringLiteral("unchanged"), report->unchanged},
        {QStringLiteral("conflicting"), report->conflicting},
        {QStringLiteral("unconfirmed"), unconfirmed},
    });
}

} // namespace skipnest::app
