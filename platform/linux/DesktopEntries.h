// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Executor.h"
#include "platform/Observers.h"
#include "platform/Scheduler.h"
#include "platform/linux/DesktopEntryIndex.h"
#include "platform/linux/FolderWatch.h"

#include <QDateTime>
#include <QHash>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <memory>
#include <optional>

namespace skipnest::linuxdesktop {

// Reads one .desktop file; nothing where it is no application's entry or marked as deleted. A
// program that is missing from the machine still has an entry.
[[nodiscard]] std::optional<DesktopEntry> readDesktopEntry(const QString& path, const QString& id);

// "applications" in the user's and the system's data folders, the most important first.
[[nodiscard]] QStringList applicationFolders();

// Every entry below the folders. An entry hides those of the same desktop id in later folders.
[[nodiscard]] std::vector<DesktopEntry> readDesktopEntries(const QStringList& folders);

// The installed applications, kept up to date: read off the main thread at start and again when the
// folders change, and on the spot if somebody asks before that is done. A .desktop file outside
// those folders joins the index when it is first asked for; nobody tells when it is edited.
class DesktopEntries {
public:
    DesktopEntries(platform::Scheduler& scheduler, platform::Executor& executor);

    [[nodiscard]] const DesktopEntryIndex& index();
    // Valid until the generation changes; null where the file is no readable entry.
    [[nodiscard]] const DesktopEntry* entry(const QString& path);
    // Reads the entry again if its file lies outside the folders and has changed since. Looks at
    // the disk: for before a start, not for each press of a key.
    void refresh(const QString& path);
    // Another number means other entries.
    [[nodiscard]] std::uint64_t generation() const { return generation_; }
    // Told on the main thread after the entries were read again.
    [[nodiscard]] platform::Observation observeChanges(std::function<void()> changed);

private:
    void readLater();
    void adopt(std::vector<DesktopEntry> entries);

    platform::Scheduler& scheduler_;
    platform::Executor& executor_;
    const QStringList folders_;
    std::optional<DesktopEntryIndex> index_;
    // Files outside the folders that were asked for, as they were when they were read.
    struct FileState {
        QDateTime modified;
        qint64 size = 0;
        bool operator==(const FileState&) const = default;
    };
    static FileState fileState(const QString& path);
    QHash<QString, FileState> foreign_;
    std::uint64_t generation_ = 0;
    std::uint64_t lastReading_ = 0;
    platform::Timer pending_;
    platform::Observers<> changed_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    FolderWatch watch_;
};

} // namespace skipnest::linuxdesktop
