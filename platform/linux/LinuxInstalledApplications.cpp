// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/LinuxInstalledApplications.h"

#include <QDirIterator>
#include <QSet>

#include <algorithm>

namespace skipnest::linuxdesktop {

std::vector<platform::InstalledApplication> LinuxInstalledApplications::list() {
    (void)entries_.index(); // read now where that is not done yet
    if (generation_ == entries_.generation())
        return known_;
    known_.clear();
    QSet<QString> seen; // desktop ids: an entry hides those of the same id in later folders
    for (const QString& folder : folders_) {
        QDirIterator files(folder, {QStringLiteral("*.desktop")}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            const QString id = path.mid(folder.size() + 1).replace(u'/', u'-');
            if (seen.contains(id))
                continue;
            seen.insert(id);
            // Only what the index has: asking for another would make it one of its own.
            const DesktopEntry* entry = entries_.index().withPath(path);
            if (entry != nullptr && entry->listed && !entry->name.isEmpty())
                known_.push_back({path, entry->name});
        }
    }
    std::ranges::sort(known_, {}, &platform::InstalledApplication::path);
    generation_ = entries_.generation();
    return known_;
}

} // namespace skipnest::linuxdesktop
