// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/DesktopEntries.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <gio/gio.h>

#include <utility>

namespace skipnest::linuxdesktop {
namespace {

using namespace std::chrono_literals;

// A package manager writes many entries in a row; they are read once, when it pauses.
constexpr platform::Duration settleTime = 300ms;

constexpr char group[] = G_KEY_FILE_DESKTOP_GROUP;

QString take(char* text) {
    const QString taken = QString::fromUtf8(text);
    g_free(text);
    return taken;
}

QString baseName(const QString& path) {
    return path.mid(path.lastIndexOf(u'/') + 1);
}

// Arguments of Exec that belong to wrappers in front of the program: env with its assignments.
QStringList withoutWrapper(QStringList words) {
    if (words.isEmpty() || baseName(words.front()) != QStringLiteral("env"))
        return words;
    words.removeFirst();
    while (!words.isEmpty() && (words.front().contains(u'=') || words.front().startsWith(u'-')))
        words.removeFirst();
    return words;
}

void parseExec(const QString& exec, DesktopEntry& entry) {
    int count = 0;
    char** words = nullptr;
    if (!g_shell_parse_argv(exec.toUtf8().constData(), &count, &words, nullptr))
        return;
    QStringList command;
    for (int i = 0; i < count; ++i)
        command.append(QString::fromUtf8(words[i]));
    g_strfreev(words);
    command = withoutWrapper(command);
    if (command.isEmpty())
        return;
    const QString program = command.takeFirst();
    command.removeIf([](const QString& word) { return word.size() == 2 && word[0] == u'%'; });
    if (baseName(program) == QStringLiteral("flatpak")) {
        // The process is the command inside; "flatpak" would be every such application's.
        const QString option = QStringLiteral("--command=");
        for (const QString& word : std::as_const(command)) {
            if (word.startsWith(option))
                entry.programs.append(baseName(word.mid(option.size())));
        }
        return;
    }
    entry.arguments = command;
    entry.programs.append(baseName(program));
    if (char* found = g_find_program_in_path(QFile::encodeName(program).constData())) {
        const QString target = QFileInfo(QFile::decodeName(found)).canonicalFilePath();
        g_free(found);
        // Every Snap links to the one snap program.
        if (const QString name = baseName(target);
            name != QStringLiteral("snap") && !name.isEmpty() && !entry.programs.contains(name))
            entry.programs.append(name);
    }
}

} // namespace

std::optional<DesktopEntry> readDesktopEntry(const QString& path, const QString& id) {
    const std::unique_ptr<GKeyFile, decltype(&g_key_file_free)> file(g_key_file_new(),
                                                                     &g_key_file_free);
    if (!g_key_file_load_from_file(file.get(), QFile::encodeName(path).constData(), G_KEY_FILE_NONE,
                                   nullptr))
        return std::nullopt;
    const auto text = [&](const char* key) {
        return take(g_key_file_get_string(file.get(), group, key, nullptr));
    };
    const auto flag = [&](const char* key) {
        return g_key_file_get_boolean(file.get(), group, key, nullptr) != 0;
    };
    if (text(G_KEY_FILE_DESKTOP_KEY_TYPE) != QStringLiteral("Application") ||
        flag(G_KEY_FILE_DESKTOP_KEY_HIDDEN))
        return std::nullopt;
    DesktopEntry entry;
    entry.path = path;
    entry.id = id;
    entry.name = take(g_key_file_get_locale_string(file.get(), group, G_KEY_FILE_DESKTOP_KEY_NAME,
                                                   nullptr, nullptr));
    entry.startupWmClass = text(G_KEY_FILE_DESKTOP_KEY_STARTUP_WM_CLASS);
    entry.icon = text(G_KEY_FILE_DESKTOP_KEY_ICON);
    entry.startupNotify = flag(G_KEY_FILE_DESKTOP_KEY_STARTUP_NOTIFY);
    entry.terminal = flag(G_KEY_FILE_DESKTOP_KEY_TERMINAL);
    entry.listed = !flag(G_KEY_FILE_DESKTOP_KEY_NO_DISPLAY);
    parseExec(text(G_KEY_FILE_DESKTOP_KEY_EXEC), entry);
    return entry;
}

QStringList applicationFolders() {
    const QString applications = QStringLiteral("/applications");
    QStringList folders{QFile::decodeName(g_get_user_data_dir()) + applications};
    for (const char* const* folder = g_get_system_data_dirs(); *folder != nullptr; ++folder)
        folders.append(QFile::decodeName(*folder) + applications);
    for (QString& folder : folders)
        folder = QDir::cleanPath(folder);
    folders.removeDuplicates();
    return folders;
}

std::vector<DesktopEntry> readDesktopEntries(const QStringList& folders) {
    const QString suffix = QStringLiteral(".desktop");
    std::vector<DesktopEntry> entries;
    QSet<QString> seen;
    for (const QString& folder : folders) {
        QStringList paths;
        QDirIterator files(folder, {QStringLiteral("*.desktop")}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext())
            paths.append(files.next());
        // The order in a folder is the file system's; equal keys must not depend on it.
        paths.sort();
        for (const QString& path : std::as_const(paths)) {
            const QString id =
                path.mid(folder.size() + 1).chopped(suffix.size()).replace(u'/', u'-');
            if (seen.contains(id))
                continue;
            seen.insert(id);
            if (auto entry = readDesktopEntry(path, id))
                entries.push_back(*std::move(entry));
        }
    }
    return entries;
}

DesktopEntries::DesktopEntries(platform::Scheduler& scheduler, platform::Executor& executor)
    : scheduler_(scheduler), executor_(executor), folders_(applicationFolders()), watch_([this] {
          pending_ =
              scheduler_.after(settleTime, "application folders changed", [this] { readLater(); });
      }) {
    readLater();
}

const DesktopEntryIndex& DesktopEntries::index() {
    if (!index_)
        adopt(readDesktopEntries(folders_));
    return *index_;
}

const DesktopEntry* DesktopEntries::entry(const QString& path) {
    if (const DesktopEntry* known = index().withPath(path))
        return known;
    const QString suffix = QStringLiteral(".desktop");
    if (!path.endsWith(suffix))
        return nullptr;
    const FileState state = fileState(path);
    const auto read = readDesktopEntry(path, baseName(path).chopped(suffix.size()));
    if (!read)
        return nullptr;
    foreign_.insert(path, state);
    index_->add(*read);
    ++generation_;
    return index_->withPath(path);
}

void DesktopEntries::refresh(const QString& path) {
    const auto read = foreign_.constFind(path);
    if (read == foreign_.constEnd() || *read == fileState(path))
        return;
    foreign_.erase(read);
    index_->remove(path);
    ++generation_;
    (void)entry(path);
}

DesktopEntries::FileState DesktopEntries::fileState(const QString& path) {
    const QFileInfo file(path);
    return {file.lastModified(), file.size()};
}

platform::Observation DesktopEntries::observeChanges(std::function<void()> changed) {
    return changed_.add(std::move(changed));
}

void DesktopEntries::readLater() {
    // Watched before read: what changes in between is noticed.
    watch_.watch(folders_);
    const auto found = std::make_shared<std::vector<DesktopEntry>>();
    executor_.serial([found, folders = folders_] { *found = readDesktopEntries(folders); },
                     [this, found, reading = ++lastReading_, alive = std::weak_ptr(alive_)] {
                         if (alive.expired() || reading != lastReading_)
                             return;
                         adopt(std::move(*found));
                         changed_.notify();
                     });
}

void DesktopEntries::adopt(std::vector<DesktopEntry> entries) {
    DesktopEntryIndex fresh(std::move(entries));
    const QStringList foreign = std::exchange(foreign_, {}).keys();
    index_ = std::move(fresh);
    ++generation_;
    for (const QString& path : foreign)
        (void)entry(path);
}

} // namespace skipnest::linuxdesktop
