// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/contacts/ContactFolders.h"

#include "platform/linux/contacts/VCards.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <iterator>

namespace skipnest::linuxdesktop {
namespace {

using namespace Qt::StringLiterals;

constexpr qint64 largestSettings = 256 * 1024;
// A whole exported address book with its pictures.
constexpr qint64 largestCard = 32 * 1024 * 1024;
// Of all files together; address books of this size are not looked through while somebody waits.
constexpr qint64 largestTotal = 256 * 1024 * 1024;
constexpr int mostFiles = 50'000;

QString expanded(QString path, const PersonFolders& person) {
    if (path == u"~" || path.startsWith(u"~/"))
        path = person.home + path.mid(1);
    return path.replace(u"$HOME"_s, person.home)
        .replace(u"$XDG_DATA_HOME"_s, person.data)
        .replace(u"$XDG_CONFIG_HOME"_s, person.configuration);
}

struct Assignment {
    QString section; // "storage my_contacts", "addressbooks"
    QString key;
    QString value; // without quotes
};

// The lines "key = value" of a file with sections, as both programs write their settings.
std::vector<Assignment> readSettings(const QString& path) {
    std::vector<Assignment> found;
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QFile::ReadOnly))
        return found;
    QString section;
    for (QString line : QString::fromUtf8(file.read(largestSettings)).split(u'\n')) {
        line = line.trimmed();
        if (line.startsWith(u'[')) {
            // "[[family]]" is part of the section before.
            if (!line.startsWith(u"[["))
                section = line.section(u'[', 1).section(u']', 0, 0).trimmed();
            continue;
        }
        const qsizetype equals = line.indexOf(u'=');
        if (equals <= 0 || line.startsWith(u'#'))
            continue;
        QString value = line.mid(equals + 1).trimmed();
        const bool isQuoted = value.size() >= 2 && value.front() == value.back() &&
                              (value.front() == u'"' || value.front() == u'\'');
        if (isQuoted)
            value = value.mid(1, value.size() - 2);
        found.push_back({section, line.left(equals).trimmed(), value});
    }
    return found;
}

QStringList khardFolders(const PersonFolders& person) {
    QStringList folders;
    for (const Assignment& each : readSettings(person.configuration + u"/khard/khard.conf"_s)) {
        if (each.section == u"addressbooks" && each.key == u"path")
            folders.append(expanded(each.value, person));
    }
    return folders;
}

// Those of its storages that keep files ending in ".vcf".
QStringList vdirsyncerFolders(const PersonFolders& person) {
    const auto settings = readSettings(person.configuration + u"/vdirsyncer/config"_s);
    QStringList folders;
    for (const Assignment& path : settings) {
        const auto keepsCards = [&path](const Assignment& each) {
            return each.section == path.section && each.key == u"fileext" && each.value == u".vcf";
        };
        if (path.key == u"path" && std::ranges::any_of(settings, keepsCards))
            folders.append(expanded(path.value, person));
    }
    return folders;
}

} // namespace

QStringList contactFolders(const PersonFolders& person, const QStringList& more) {
    QStringList candidates{person.data + u"/contacts"_s, person.home + u"/.contacts"_s};
    candidates += khardFolders(person) + vdirsyncerFolders(person);
    for (const QString& path : more)
        candidates.append(expanded(path, person));
    QStringList folders;
    for (const QString& candidate : candidates) {
        // A folder inside another one would give its people twice.
        const QString real = QFileInfo(candidate).canonicalFilePath();
        const auto holds = [&real](const QString& known) {
            return real == known || real.startsWith(known + u'/');
        };
        if (real.isEmpty() || !QFileInfo(real).isDir() || std::ranges::any_of(folders, holds))
            continue;
        folders.removeIf([&real](const QString& known) { return known.startsWith(real + u'/'); });
        folders.append(real);
    }
    return folders;
}

std::vector<platform::Contact> readContactFolders(const QStringList& folders) {
    std::vector<platform::Contact> contacts;
    qint64 total = 0;
    int files = 0;
    for (const QString& folder : folders) {
        QDirIterator each(folder, {u"*.vcf"_s, u"*.VCF"_s}, QDir::Files | QDir::Readable,
                          QDirIterator::Subdirectories);
        while (each.hasNext() && ++files <= mostFiles) {
            const QString path = each.next();
            QFile file(path);
            // Only a file has an end.
            if (!QFileInfo(path).isFile() || !file.open(QFile::ReadOnly) ||
                file.size() > largestCard || (total += file.size()) > largestTotal)
                continue;
            auto read = readVCards(file.read(largestCard), path);
            std::ranges::move(read, std::back_inserter(contacts));
        }
    }
    return contacts;
}

} // namespace skipnest::linuxdesktop
