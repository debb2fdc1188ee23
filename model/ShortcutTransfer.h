// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/AppConfiguration.h"
#include "model/ImportMerge.h"
#include "platform/Result.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace skipnest::platform {
class Files;
class WallClock;
struct AppInfo;
} // namespace skipnest::platform

namespace skipnest::model {

class ShortcutListViewModel;

// Where an export goes.
enum class ExportDestination { downloads, desktop, documents };

// Export files: a whole configuration document. Importing merges by id: known records are updated,
// new ones appended, sortOrder is renumbered ascending, and the settings of this document stay.
class ShortcutTransfer {
public:
    ShortcutTransfer(ShortcutListViewModel& list, platform::Files& files,
                     const platform::WallClock& clock, const platform::AppInfo& app);

    // "Skipnest-Export-2026-07-24.json"
    [[nodiscard]] QString suggestedName() const;
    // The person's folder, by the desktop's own name for it.
    [[nodiscard]] QString folder(ExportDestination destination) const;
    // The whole document, encoded as it is stored.
    [[nodiscard]] QByteArray exported() const;
    // Writes the export; an earlier export of the same day is replaced. The path written.
    [[nodiscard]] platform::Result<QString> exportTo(ExportDestination destination);
    [[nodiscard]] platform::Result<QString> exportTo(const QString& path);

    // Files in the three destinations whose name contains "Skipnest" and "-Export", newest name
    // first. Found without an index, so that the import works on a fresh machine too.
    [[nodiscard]] QStringList candidates() const;
    // "That file couldn't be read as a Skipnest export - pick another one."
    [[nodiscard]] static QString unreadable();
    // What an import would do, without doing it.
    [[nodiscard]] platform::Result<ImportReport> preview(const QByteArray& document) const;
    // Fails with `malformed` (the detail is unreadable()) or `tooLarge` (16 MB), and then nothing
    // has changed.
    [[nodiscard]] platform::Result<ImportReport> importDocument(const QByteArray& document);
    [[nodiscard]] platform::Result<ImportReport> importFile(const QString& path);

private:
    [[nodiscard]] static platform::Result<std::vector<ShortcutItem>>
    records(const QByteArray& document);

    ShortcutListViewModel& list_;
    platform::Files& files_;
    const platform::WallClock& clock_;
    const platform::AppInfo& app_;
};

} // namespace skipnest::model
