// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace skipnest::linuxdesktop {

// What the backend keeps of one .desktop file.
struct DesktopEntry {
    QString path;           // absolute
    QString id;             // desktop id without ".desktop"
    QString name;           // localised
    QString startupWmClass; // empty where the entry names none
    // Base names that its process may have: the program of Exec, what that links to, the command
    // inside a Flatpak. Wrappers such as env are looked through.
    QStringList programs;
    QStringList arguments; // of Exec, without field codes
    QString icon;
    bool startupNotify = false;
    bool terminal = false;
    bool listed = true; // false: NoDisplay, not meant for menus

    bool operator==(const DesktopEntry&) const = default;
};

// Desktop entries by what windows and shortcuts know of them. Where several entries have the same
// key, those meant for menus come first, then the order in which they were added.
class DesktopEntryIndex {
public:
    using Entries = std::vector<const DesktopEntry*>;

    DesktopEntryIndex() = default;
    explicit DesktopEntryIndex(std::vector<DesktopEntry> entries);

    void add(DesktopEntry entry);
    void remove(const QString& path);

    [[nodiscard]] const DesktopEntry* withPath(const QString& path) const;
    // Letter case does not matter to these.
    [[nodiscard]] const Entries& withId(const QString& id) const;
    [[nodiscard]] const Entries& withWmClass(const QString& name) const;
    [[nodiscard]] const Entries& withProgram(const QString& program) const;

private:
    using Keys = QHash<QString, Entries>;
    static void insert(Keys& keys, const QString& key, const DesktopEntry* entry);
    static const Entries& lookUp(const Keys& keys, const QString& key);

    std::vector<std::shared_ptr<const DesktopEntry>> entries_;
    QHash<QString, const DesktopEntry*> byPath_;
    Keys byId_;
    Keys byWmClass_;
    Keys byProgram_;
};

} // namespace skipnest::linuxdesktop
