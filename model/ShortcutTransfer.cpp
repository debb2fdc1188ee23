// SPDX-License-Identifier: Apache-2.0
#include "model/ShortcutTransfer.h"

#include "model/ConfigurationCoding.h"
#include "model/ShortcutListViewModel.h"
#include "platform/AppInfo.h"
#include "platform/Files.h"
#include "platform/WallClock.h"

#include <QStringBuilder>

#include <algorithm>
#include <functional>

namespace skipnest::model {

using platform::Failure;
using platform::FileKind;
using platform::Outcome;
using platform::Result;

namespace {

QString nameIn(const QString& path) {
    return path.mid(path.lastIndexOf(u'/') + 1);
}

Failure tooLarge() {
    return {Failure::Kind::tooLarge,
            QStringLiteral("That file is larger than 16 MB, and no Skipnest export is.")};
}

} // namespace

ShortcutTransfer::ShortcutTransfer(ShortcutListViewModel& list, platform::Files& files,
                                   const platform::WallClock& clock, const platform::AppInfo& app)
    : list_(list), files_(files), clock_(clock), app_(app) {}

QString ShortcutTransfer::unreadable() {
    return QStringLiteral("That file couldn't be read as a Skipnest export - pick another one.");
}

QString ShortcutTransfer::suggestedName() const {
    return u"Skipnest-Export-" % clock_.today().toString(QStringLiteral("yyyy-MM-dd")) % u".json";
}

QString ShortcutTransfer::folder(ExportDestination destination) const {
    switch (destination) {
    case ExportDestination::downloads:
        return app_.downloadsFolder;
    case ExportDestination::desktop:
        return app_.desktopFolder;
    case ExportDestination::documents:
        return app_.documentsFolder;
    }
    Q_UNREACHABLE();
}

QByteArray ShortcutTransfer::exported() const {
    return encodeConfiguration(list_.config());
}

Result<QString> ShortcutTransfer::exportTo(ExportDestination destination) {
    const QString place = folder(destination);
    if (const Outcome made = files_.createFolder(place); !made)
        return made.failure();
    return exportTo(place % u'/' % suggestedName());
}

Result<QString> ShortcutTransfer::exportTo(const QString& path) {
    if (files_.kind(path) == FileKind::folder)
        return Failure{Failure::Kind::refused, path % u" is a folder"};
    if (const Outcome written = platform::writeDurably(files_, path, exported()); !written)
        return written.failure();
    return path;
}

QStringList ShortcutTransfer::candidates() const {
    QStringList paths;
    for (const ExportDestination destination :
         {ExportDestination::downloads, ExportDestination::desktop, ExportDestination::documents}) {
        const QString place = folder(destination);
        // A folder that cannot be read offers nothing.
        const auto names = files_.list(place);
        if (!names)
            continue;
        for (const QString& name : *names) {
            const QString path = place % u'/' % name;
            if (name.contains(u"Skipnest") && name.contains(u"-Export") && !paths.contains(path) &&
                files_.kind(path) == FileKind::file)
                paths.append(path);
        }
    }
    std::ranges::stable_sort(paths, std::greater(), nameIn);
    return paths;
}

Result<std::vector<ShortcutItem>> ShortcutTransfer::records(const QByteArray& document) {
    if (document.size() > largestConfiguration)
        return tooLarge();
    auto decoded = decodeConfiguration(document);
    if (!decoded)
        return Failure{Failure::Kind::malformed, unreadable()};
    return std::move(decoded).value().shortcuts;
}

Result<ImportReport> ShortcutTransfer::preview(const QByteArray& document) const {
    const auto imported = records(document);
    if (!imported)
        return imported.failure();
    return list_.previewMerge(*imported);
}

Result<ImportReport> ShortcutTransfer::importDocument(const QByteArray& document) {
    const auto imported = records(document);
    if (!imported)
        return imported.failure();
    return list_.merge(*imported);
}

Result<ImportReport> ShortcutTransfer::importFile(const QString& path) {
    const auto document = files_.read(path, largestConfiguration);
    if (document)
        return importDocument(*document);
    if (document.failure().kind == Failure::Kind::tooLarge)
        return tooLarge();
    return document.failure();
}

} // namespace skipnest::model
