// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/AppConfiguration.h"
#include "platform/AppInfo.h"
#include "platform/Files.h"
#include "platform/Result.h"

#include <QByteArray>
#include <QDate>
#include <QString>
#include <QStringList>

#include <mutex>
#include <optional>

namespace skipnest::platform {
class Diagnostics;
class UserDefaults;
class WallClock;
} // namespace skipnest::platform

namespace skipnest::model {

// How the configuration file was found, for `status` and the popover.
struct StorageState {
    enum class Kind {
        missing, // there was none: a new document
        loaded,
        broken, // there is one, but it cannot be read or does not decode; `reason` says why
    };
    Kind kind = Kind::missing;
    QString reason;
    std::optional<QString> newestSnapshot; // file name of the newest daily snapshot that decodes
    std::optional<QString> movedTo;        // file name a broken document was moved to in this run

    bool operator==(const StorageState&) const = default;
};

// The configuration file, "config.json" in the support folder, and its daily copies in "Backups"
// beside it. The document is read once and written back whole after every change.
//
// A crash or a full disk at any moment leaves the old document or the new one. A file that does not
// decode is never lost: the first save moves it to "config.json.corrupt-<time>", and where that
// cannot be done, does not save.
//
// load() and save() may be called from any thread. The rest belongs to the main thread.
class StorageService {
public:
    // Thirty days of snapshots: a month is as far back as people remember what their list was.
    static constexpr qsizetype snapshotsKept = 30;

    StorageService(platform::Files& files, platform::Diagnostics& diagnostics,
                   platform::WallClock& clock, platform::UserDefaults& defaults,
                   const platform::AppInfo& app);

    // The document: of the file the first time, afterwards as last saved. A file that cannot be
    // used is reported on standard output and counts as empty.
    [[nodiscard]] AppConfiguration load();

    // A failure is printed, and the program goes on with the new document.
    void save(const AppConfiguration& configuration);

    // Copies the document to "Backups/config-yyyy-MM-dd.json" (local date) unless today has one,
    // and drops the oldest beyond snapshotsKept. A document that does not decode is never copied:
    // it would push out one that does.
    void takeDailySnapshot();

    // Adopts the shortcuts of the lighter edition, once ever: those whose id is not in the list
    // yet, after the others, ids kept. Does nothing while our own document is broken.
    void migrateFromLite();

    // Puts back the snapshot of a day, or the newest one that decodes, and answers its file name.
    // The present file is kept as "config.json.before-restore-<time>" first. Whoever shows the
    // document loads it again afterwards. On failure nothing has changed.
    [[nodiscard]] platform::Result<QString> restore(std::optional<QDate> day);

    [[nodiscard]] StorageState state();

private:
    struct Reading {
        StorageState::Kind kind = StorageState::Kind::missing;
        QString reason;
        QByteArray bytes;
        AppConfiguration document;
    };
    struct Snapshot {
        QString fileName;
        Reading content;
    };

    [[nodiscard]] Reading read(const QString& path) const;
    [[nodiscard]] platform::Result<QStringList> snapshotNames() const;
    [[nodiscard]] platform::Result<Snapshot> usableSnapshot(std::optional<QDate> day) const;
    void pruneSnapshots();
    [[nodiscard]] QString freePath(const QString& suffix) const;

    // These expect mutex_ to be held.
    void ensureLoaded();
    platform::Outcome store(const AppConfiguration& configuration);
    platform::Outcome keepBeforeRestore(QString& movedTo);

    platform::Files& files_;
    platform::Diagnostics& diagnostics_;
    platform::WallClock& clock_;
    platform::UserDefaults& defaults_;
    QString folder_;
    QString path_;
    QString backups_;
    QString liteConfig_;

    std::mutex mutex_;
    std::optional<AppConfiguration> cache_;
    StorageState::Kind kind_ = StorageState::Kind::missing;
    QString reason_;
    std::optional<QString> movedTo_;
};

} // namespace skipnest::model
