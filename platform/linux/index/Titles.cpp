// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/index/Titles.h"

#include "platform/linux/DesktopEntries.h"
#include "platform/linux/index/NameFolding.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <gio/gio.h>

#include <memory>

namespace skipnest::linuxdesktop {
namespace {

using platform::IndexedFile;

// The Name= without a language.
QString untranslatedName(const QString& path) {
    const std::unique_ptr<GKeyFile, decltype(&g_key_file_free)> file(g_key_file_new(),
                                                                     &g_key_file_free);
    if (!g_key_file_load_from_file(file.get(), QFile::encodeName(path).constData(), G_KEY_FILE_NONE,
                                   nullptr))
        return {};
    const std::unique_ptr<char, decltype(&g_free)> name(
        g_key_file_get_string(file.get(), G_KEY_FILE_DESKTOP_GROUP, G_KEY_FILE_DESKTOP_KEY_NAME,
                              nullptr),
        &g_free);
    return QString::fromUtf8(name.get());
}

Title titled(IndexedFile item, const QStringList& otherNames) {
    Title title{std::move(item), {}};
    title.folded.push_back(foldedName(title.item.displayName));
    for (const QString& name : otherNames) {
        if (std::string folded = foldedName(name);
            !folded.empty() && std::ranges::find(title.folded, folded) == title.folded.end())
            title.folded.push_back(std::move(folded));
    }
    return title;
}

} // namespace

std::vector<Title> applicationTitles(const QStringList& folders) {
    std::vector<Title> titles;
    for (const DesktopEntry& entry : readDesktopEntries(folders)) {
        if (entry.listed && !entry.name.isEmpty())
            titles.push_back(titled({entry.path, entry.name, IndexedFile::Kind::application},
                                    {untranslatedName(entry.path)}));
    }
    return titles;
}

std::vector<Title> folderTitles(const std::vector<UserFolder>& userFolders,
                                const QStringList& roots) {
    std::vector<Title> titles;
    QSet<QString> seen;
    const auto add = [&](const QString& path, const QStringList& names) {
        const QFileInfo folder(path);
        if (!folder.isDir() || folder.fileName().isEmpty() || seen.contains(path))
            return;
        seen.insert(path);
        titles.push_back(titled({path, folder.fileName(), IndexedFile::Kind::folder}, names));
    };
    for (const UserFolder& folder : userFolders)
        add(folder.path, folder.names);
    for (const QString& root : roots)
        add(root, {});
    return titles;
}

} // namespace skipnest::linuxdesktop
