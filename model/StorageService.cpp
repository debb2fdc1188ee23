// SPDX-License-Identifier: Apache-2.0
#include "model/StorageService.h"

#include "model/ConfigurationCoding.h"
#include "model/FreePath.h"
#include "model/SortOrder.h"
#include "platform/Diagnostics.h"
#include "platform/UserDefaults.h"
#include "platform/WallClock.h"

#include <QRegularExpression>

#include <algorithm>
#include <unordered_set>

namespace skipnest::model {
namespace {

using platform::Done;
using platform::Failure;
using platform::FileKind;
using platform::Outcome;
using platform::Result;

QString migrationKey() {
    return QStringLiteral("sk.migration.lite");
}

QString dateText(QDate day) {
    return day.toString(QStringLiteral("yyyy-MM-dd"));
}

QString snapshotName(QDate day) {
    return QStringLiteral("config-") + dateText(day) + QStringLiteral(".json");
}

QString fileName(const QString& path) {
    return path.mid(path.lastIndexOf(u'/') + 1);
}

} // namespace

StorageService::StorageService(platform::Files& files, platform::Diagnostics& diagnostics,
                               platform::WallClock& clock, platform::UserDefaults& defaults,
                               const platform::AppInfo& app)
    : files_(files), diagnostics_(diagnostics), clock_(clock), defaults_(defaults),
      folder_(app.supportFolder), path_(folder_ + QStringLiteral("/config.json")),
      backups_(folder_ + QStringLiteral("/Backups")), liteConfig_(app.liteConfig) {}

StorageService::Reading StorageService::read(const QString& path) const {
    using Kind = StorageState::Kind;
    switch (files_.kind(path)) {
    case FileKind::none:
        return {};
    case FileKind::folder:
        return {Kind::broken, fileName(path) + QStringLiteral(" is a folder"), {}, {}};
    case FileKind::file:
    case FileKind::other:
        break;
    }
    Result<QByteArray> bytes = files_.read(path, largestConfiguration);
    if (!bytes)
        return {Kind::broken, bytes.failure().detail, {}, {}};
    Result<AppConfiguration> document = decodeConfiguration(*bytes);
    if (!document)
        return {Kind::broken, document.failure().detail, std::move(bytes).value(), {}};
    return {Kind::loaded, {}, std::move(bytes).value(), std::move(document).value()};
}

void StorageService::ensureLoaded() {
    if (cache_)
        return;
    Reading reading = read(path_);
    kind_ = reading.kind;
    reason_ = reading.reason;
    if (kind_ == StorageState::Kind::broken) {
        diagnostics_.print(QStringLiteral("[Skipnest] Failed to load config: ") + reason_ +
                           QStringLiteral(". Using empty config."));
    }
    cache_ = std::move(reading.document);
}

AppConfiguration StorageService::load() {
    const std::scoped_lock lock(mutex_);
    ensureLoaded();
    return *cache_;
}

void StorageService::save(const AppConfiguration& configuration) {
    const std::scoped_lock lock(mutex_);
    if (const Outcome stored = store(configuration); !stored) {
        diagnostics_.print(QStringLiteral("[Skipnest] Failed to save config: ") +
                           stored.failure().detail);
    }
}

Outcome StorageService::store(const AppConfiguration& configuration) {
    cache_ = configuration;
    if (const Outcome made = files_.createFolder(folder_); !made)
        return made;
    // Looked at each time and not only at the start: somebody may have edited the file since.
    if (read(path_).kind == StorageState::Kind::broken) {
        const QString kept = freePath(QStringLiteral("corrupt"));
        if (const Outcome moved = files_.rename(path_, kept); !moved)
            return moved;
        movedTo_ = fileName(kept);
        diagnostics_.log(QStringLiteral("config: moved a document that does not decode to ") +
                         *movedTo_);
        // Before the new document takes the name: the disk may keep two renames in either order.
        if (const Outcome flushed = files_.flushFolder(folder_); !flushed)
            return flushed;
    }
    if (const Outcome written =
            platform::writeDurably(files_, path_, encodeConfiguration(configuration));
        !written)
        return written;
    kind_ = StorageState::Kind::loaded;
    reason_.clear();
    return Done{};
}

QString StorageService::freePath(const QString& suffix) const {
    return freePathBeside(files_, path_, suffix, clock_.nowLocal());
}

void StorageService::takeDailySnapshot() {
    const auto failed = [this](const QString& why) {
        diagnostics_.log(QStringLiteral("backup: snapshot failed ") + why);
    };
    const QString name = snapshotName(clock_.today());
    const QString path = backups_ + u'/' + name;
    if (files_.kind(path) != FileKind::none)
        return;
    const Reading document = read(path_);
    switch (document.kind) {
    case StorageState::Kind::missing:
        return;
    case StorageState::Kind::broken:
        return failed(document.reason);
    case StorageState::Kind::loaded:
        break;
    }
    if (const Outcome made = files_.createFolder(backups_); !made)
        return failed(made.failure().detail);
    if (const Outcome written = platform::writeDurably(files_, path, document.bytes); !written)
        return failed(written.failure().detail);
    diagnostics_.log(QStringLiteral("backup: snapshot ") + name);
    pruneSnapshots();
}

Result<QStringList> StorageService::snapshotNames() const {
    if (files_.kind(backups_) != FileKind::folder)
        return QStringList();
    const Result<QStringList> names = files_.list(backups_);
    if (!names)
        return names;
    static const QRegularExpression form(
        QStringLiteral("\\Aconfig-[0-9]{4}-[0-9]{2}-[0-9]{2}\\.json\\z"));
    QStringList snapshots = names->filter(form);
    snapshots.sort();
    return snapshots;
}

void StorageService::pruneSnapshots() {
    const Result<QStringList> names = snapshotNames();
    if (!names) {
        diagnostics_.log(QStringLiteral("backup: pruning failed ") + names.failure().detail);
        return;
    }
    for (qsizetype i = 0; i < names->size() - snapshotsKept; ++i) {
        if (const Outcome removed = files_.remove(backups_ + u'/' + names->at(i)); !removed)
            diagnostics_.log(QStringLiteral("backup: pruning failed ") + removed.failure().detail);
    }
}

Result<StorageService::Snapshot> StorageService::usableSnapshot(std::optional<QDate> day) const {
    QStringList names;
    if (day) {
        names = {snapshotName(*day)};
    } else {
        const Result<QStringList> all = snapshotNames();
        if (!all)
            return all.failure();
        names = *all;
    }
    QString reason = day ? QStringLiteral("there is no snapshot of ") + dateText(*day)
                         : QStringLiteral("there is no snapshot");
    Failure::Kind kind = Failure::Kind::notFound;
    for (auto name = names.crbegin(); name != names.crend(); ++name) {
        Reading content = read(backups_ + u'/' + *name);
        if (content.kind == StorageState::Kind::loaded)
            return Snapshot{*name, std::move(content)};
        if (content.kind == StorageState::Kind::broken && kind == Failure::Kind::notFound) {
            kind = Failure::Kind::malformed;
            reason = *name + QStringLiteral(" cannot be used: ") + content.reason;
        }
    }
    return Failure{kind, reason};
}

Outcome StorageService::keepBeforeRestore(QString& movedTo) {
    if (files_.kind(path_) == FileKind::none)
        return Done{};
    const QString kept = freePath(QStringLiteral("before-restore"));
    // Whatever is there is kept, decodable or not; what cannot be copied is moved.
    constexpr std::int64_t largestCopy = 1LL << 30;
    if (files_.kind(path_) != FileKind::folder) {
        if (const Result<QByteArray> bytes = files_.read(path_, largestCopy))
            return platform::writeDurably(files_, kept, *bytes);
    }
    if (const Outcome moved = files_.rename(path_, kept); !moved)
        return moved;
    movedTo = kept;
    return files_.flushFolder(folder_);
}

Result<QString> StorageService::restore(std::optional<QDate> day) {
    Result<Snapshot> snapshot = usableSnapshot(day);
    if (!snapshot)
        return snapshot.failure();

    const std::scoped_lock lock(mutex_);
    QString movedTo;
    Outcome done = keepBeforeRestore(movedTo);
    if (done)
        done = platform::writeDurably(files_, path_, snapshot->content.bytes);
    if (!done) {
        if (!movedTo.isEmpty() && files_.kind(path_) == FileKind::none)
            (void)files_.rename(movedTo, path_);
        return done.failure();
    }
    kind_ = StorageState::Kind::loaded;
    reason_.clear();
    cache_ = snapshot->content.document;
    diagnostics_.log(QStringLiteral("backup: restored ") + snapshot->fileName);
    return snapshot->fileName;
}

void StorageService::migrateFromLite() {
    if (liteConfig_.isEmpty() || defaults_.value(migrationKey()).toBool())
        return;
    const std::scoped_lock lock(mutex_);
    ensureLoaded();
    if (kind_ == StorageState::Kind::broken)
        return;
    Reading lite = read(liteConfig_);
    switch (lite.kind) {
    case StorageState::Kind::missing:
        return;
    case StorageState::Kind::broken:
        diagnostics_.log(QStringLiteral("migration: the document of Skipnest Lite is unusable: ") +
                         lite.reason);
        return;
    case StorageState::Kind::loaded:
        break;
    }

    AppConfiguration merged = *cache_;
    sortByOrder(merged.shortcuts);
    sortByOrder(lite.document.shortcuts);
    std::unordered_set<RecordId> present;
    for (const ShortcutItem& item : merged.shortcuts)
        present.insert(item.id);
    qsizetype adopted = 0;
    for (ShortcutItem& item : lite.document.shortcuts) {
        if (!present.insert(item.id).second)
            continue;
        item.sortOrder = nextSortOrder(merged.shortcuts);
        merged.shortcuts.push_back(std::move(item));
        ++adopted;
    }
    if (adopted > 0) {
        // Without the mark it is tried again at the next start.
        if (const Outcome stored = store(merged); !stored) {
            diagnostics_.print(QStringLiteral("[Skipnest] Failed to save config: ") +
                               stored.failure().detail);
            return;
        }
        diagnostics_.log(
            QStringLiteral("migration: adopted %1 shortcut(s) from Skipnest Lite").arg(adopted));
    }
    if (const Outcome marked = defaults_.setValue(migrationKey(), true); !marked)
        diagnostics_.log(QStringLiteral("migration: not marked as done: ") +
                         marked.failure().detail);
}

StorageState StorageService::state() {
    const std::scoped_lock lock(mutex_);
    ensureLoaded();
    StorageState state{kind_, reason_, std::nullopt, movedTo_};
    if (const Result<Snapshot> snapshot = usableSnapshot(std::nullopt))
        state.newestSnapshot = snapshot->fileName;
    return state;
}

} // namespace skipnest::model
