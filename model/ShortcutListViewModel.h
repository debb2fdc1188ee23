// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/AppConfiguration.h"
#include "model/ImportMerge.h"
#include "model/ImportTrust.h"
#include "model/ShortcutItem.h"

#include <QObject>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace skipnest::platform {
class Bookmarks;
class Files;
class UserDefaults;
class WallClock;
class Workspace;
struct AppInfo;
} // namespace skipnest::platform

namespace skipnest::model {

class StorageService;

// The one owner of the live shortcut list and of the loaded configuration. Everything that changes
// either goes through here and ends in the same two steps: write the document, then rebuild the
// hotkeys (unless they are suspended). Signals come last, when all of that has happened.
//
// The list is ascending in sortOrder; equal numbers keep the order of the file.
//
// Main thread only. The references must outlive it.
class ShortcutListViewModel final : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString menuBarIconName READ menuBarIconName NOTIFY menuBarIconNameChanged)
public:
    // Both get the configuration with the live list in it; for the hotkeys without the records that
    // wait to be confirmed.
    using Callback = std::function<void(const AppConfiguration&)>;

    // Loads, then calls `settingsApplied` and `rebuildHotkeys`. `settingsApplied` sets process-wide
    // switches; it is called again after every change of settings.
    ShortcutListViewModel(StorageService& storage, platform::Workspace& workspace,
                          platform::Bookmarks& bookmarks, platform::Files& files,
                          platform::WallClock& clock, platform::UserDefaults& defaults,
                          const platform::AppInfo& app, Callback rebuildHotkeys,
                          Callback settingsApplied, QObject* parent = nullptr);

    [[nodiscard]] const std::vector<ShortcutItem>& shortcuts() const { return shortcuts_; }
    [[nodiscard]] const QString& menuBarIconName() const { return config_.menuBarIconName; }
    [[nodiscard]] Theme theme() const { return config_.themeOrDefault(); }
    // Its `shortcuts` are the live list as of the last commit.
    [[nodiscard]] const AppConfiguration& config() const { return config_; }

    [[nodiscard]] bool hotkeysSuspended() const { return hotkeysSuspended_; }
    // While suspended, changes leave the registered hotkeys alone. The end of a suspension rebuilds
    // them.
    void setHotkeysSuspended(bool suspended);

    // A record for the file, folder or application at an absolute path, put last. Named after the
    // last path component without its extension; an application after its display name.
    ShortcutItem addShortcut(const QString& path);
    ShortcutItem addShortcut(const QString& path, std::optional<KeyCombo> keyCombo,
                             std::optional<KeyCombo> hideKeyCombo);

    // Each answers whether the record was there; without it nothing is written.
    bool remove(const RecordId& id);
    // Replaces the record with the item's id. Its place stays: sortOrder is kept as it was. A new
    // target that the person chose needs no confirmation.
    bool update(const ShortcutItem& item);
    // Puts the record at this row (clamped); the order numbers stay, dealt out anew.
    bool move(const RecordId& id, qsizetype row);

    [[nodiscard]] std::optional<ShortcutItem> item(const RecordId& id) const;
    // The first record of this path. Paths are compared as written but for "//", ".", ".." and a
    // slash at the end; links are not followed.
    [[nodiscard]] std::optional<ShortcutItem> find(const QString& path) const;
    // By name: equal, else equal but for case, else the beginning but for case. Several that match
    // equally well are all answered; the caller asks which.
    [[nodiscard]] std::vector<ShortcutItem> findByName(const QString& name) const;

    // Takes over records of another document: see mergeImport(). The settings stay. Fails where it
    // cannot be noted which of them wait to be confirmed, and then nothing has changed.
    [[nodiscard]] platform::Result<ImportReport> merge(const std::vector<ShortcutItem>& imported);
    [[nodiscard]] ImportReport previewMerge(const std::vector<ShortcutItem>& imported) const;
    // An imported application from outside the application folders is listed and has no hotkeys
    // until the person has said that it may run.
    [[nodiscard]] bool isConfirmed(const RecordId& id) const { return trust_.isConfirmed(id); }
    bool confirm(const RecordId& id);
    // Whether a combo of the record is another record's too: only one of them can work.
    [[nodiscard]] bool conflicting(const RecordId& id) const;

    // Changes settings and saves. The list itself is not changed this way: what `change` does to
    // `shortcuts` is dropped. Hotkeys are rebuilt where a setting changed that they depend on.
    void changeSettings(const std::function<void(AppConfiguration&)>& change);
    // Reads `heard` as `canonical` from now on, in place of an earlier alias for the same words
    // (but for case). Texts are trimmed; nothing happens where one is empty.
    void addAlias(const QString& heard, const QString& canonical);
    void removeAlias(const QString& heard);
    // A word that recognition should know. Trimmed; one that is there already (but for case) takes
    // the new spelling.
    void addTerm(const QString& term);
    void removeTerm(const QString& term);

    // Writes the list and the settings, then rebuilds the hotkeys.
    void commit();
    // Takes over what the store holds now, as after a restore.
    void reload();

Q_SIGNALS:
    void shortcutsChanged();
    void settingsChanged();
    void menuBarIconNameChanged();
    void themeChanged();
    void hotkeysSuspendedChanged();

private:
    std::vector<ShortcutItem>::iterator position(const RecordId& id);
    [[nodiscard]] ImportMerge mergeOf(const std::vector<ShortcutItem>& imported) const;
    [[nodiscard]] ShortcutItem::TargetType targetType(const QString& path) const;
    [[nodiscard]] ShortcutItem makeShortcut(const QString& path) const;
    void takeOver();
    void rebuild();
    void announceSettings(const AppConfiguration& before);

    StorageService& storage_;
    platform::Workspace& workspace_;
    platform::Bookmarks& bookmarks_;
    platform::Files& files_;
    platform::WallClock& clock_;
    Callback rebuildHotkeys_;
    Callback settingsApplied_;
    ImportTrust trust_;

    AppConfiguration config_;
    std::vector<ShortcutItem> shortcuts_;
    bool hotkeysSuspended_ = false;
};

} // namespace skipnest::model
