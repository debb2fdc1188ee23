// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/AppConfiguration.h"
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

struct ImportReport {
    int added = 0;
    int updated = 0;
    int unchanged = 0;
    int conflicting = 0; // records whose combo another record has too
    int unconfirmed = 0; // applications outside the application folders, disabled until confirmed

    [[nodiscard]] int takenOver() const { return added + updated + unchanged; }
    bool operator==(const ImportReport&) const = default;
};

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
    // What an import would do, without doing it.
    [[nodiscard]] platform::Result<ImportReport> preview(const QByteArray& document) const;
    // Fails with `malformed` or `tooLarge` (16 MB), and then nothing has changed.
    [[nodiscard]] platform::Result<ImportReport> importDocument(const QByteArray& document);
    [[nodiscard]] platform::Result<ImportReport> importFile(const QString& path);

private:
    ShortcutListViewModel& list_;
    platform::Files& files_;
    const platform::WallClock& clock_;
    const platform::AppInfo& app_;
};

} // namespace skipnest::model
