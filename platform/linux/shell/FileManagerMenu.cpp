// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/shell/FileManagerMenu.h"

#include "platform/linux/shell/InstalledProgram.h"

#include <QFile>
#include <QLocale>
#include <QStandardPaths>

#include <algorithm>
#include <array>

namespace skipnest::linuxdesktop {
namespace {

using platform::Availability;

constexpr std::int64_t sizeLimit = 64 * 1024;
constexpr char marker[] =
    "# Written by Skipnest and replaced when it moves. Without this line it is left alone.\n";
constexpr char name[] = "Name=Give it a key\nName[de]=Taste zuweisen\n";

struct Command {
    QStringList words; // a path is to follow
    QString icon;
};

QByteArray thunar(const Command& command) {
    return QByteArray(marker) + "[Desktop Entry]\nType=Application\n" + name +
           "Icon=" + command.icon.toUtf8() +
           "\nExec=" + execLine(command.words, QStringLiteral("%f")).toUtf8() + '\n';
}

QByteArray fileManagerAction(const Command& command) {
    return QByteArray(marker) + "[Desktop Entry]\nType=Action\n" + name +
           "Icon=" + command.icon.toUtf8() +
           "\nProfiles=one;\n\n[X-Action-Profile one]\nMimeTypes=all/all;\nSelectionCount==1\n"
           "Exec=" +
           execLine(command.words, QStringLiteral("%f")).toUtf8() + '\n';
}

QByteArray dolphin(const Command& command) {
    return QByteArray(marker) +
           "[Desktop Entry]\nType=Service\nMimeType=all/all;\nActions=giveKey;\n"
           "X-KDE-ServiceTypes=KonqPopupMenu/Plugin\nX-KDE-RequiredNumberOfUrls=1\n\n"
           "[Desktop Action giveKey]\n" +
           name + "Icon=" + command.icon.toUtf8() +
           "\nExec=" + execLine(command.words, QStringLiteral("%f")).toUtf8() + '\n';
}

QByteArray nemo(const Command& command) {
    return QByteArray(marker) + "[Nemo Action]\n" + name + "Icon-Name=" + command.icon.toUtf8() +
           "\nSelection=s\nExtensions=any;\nQuote=double\nExec=" +
           shellLine(command.words).replace(u'\\', QStringLiteral("\\\\")).toUtf8() + " %F\n";
}

// The selection comes one path a line, in a variable named after the program.
QByteArray script(const Command& command, const char* variable) {
    return QByteArray("#!/bin/sh\n") + marker + "exec " + shellLine(command.words).toUtf8() +
           " \"$(printf '%s' \"$" + variable + "\" | head -n 1)\"\n";
}

QByteArray nautilus(const Command& command) {
    return script(command, "NAUTILUS_SCRIPT_SELECTED_FILE_PATHS");
}

QByteArray caja(const Command& command) {
    return script(command, "CAJA_SCRIPT_SELECTED_FILE_PATHS");
}

struct FileManager {
    std::array<const char*, 2> programs; // any of them
    enum class Base { data, config } base;
    const char* file; // ends with a slash where the name is what the menu shows
    QByteArray (*text)(const Command&);
};

constexpr auto data = FileManager::Base::data;
constexpr auto config = FileManager::Base::config;
constexpr FileManager fileManagers[] = {
    {{"thunar", nullptr}, data, "Thunar/sendto/skipnest-give-key.desktop", &thunar},
    {{"pcmanfm-qt", "pcmanfm"},
     data,
     "file-manager/actions/skipnest-give-key.desktop",
     &fileManagerAction},
    {{"dolphin", nullptr}, data, "kio/servicemenus/skipnest-give-key.desktop", &dolphin},
    {{"nemo", nullptr}, data, "nemo/actions/skipnest-give-key.nemo_action", &nemo},
    {{"nautilus", nullptr}, data, "nautilus/scripts/", &nautilus},
    {{"caja", nullptr}, config, "caja/scripts/", &caja},
};

bool isInstalled(const FileManager& manager) {
    return std::ranges::any_of(manager.programs, [](const char* program) {
        return program != nullptr &&
               !QStandardPaths::findExecutable(QString::fromLatin1(program)).isEmpty();
    });
}

// By the language at the time of writing: such a file has one name only.
QString scriptName() {
    return QLocale().language() == QLocale::German ? QStringLiteral("Taste zuweisen")
                                                   : QStringLiteral("Give it a key");
}

} // namespace

FileManagerMenu::FileManagerMenu(platform::Files& files, platform::AppInfo app, QString dataFolder,
                                 QString configFolder)
    : files_(files), app_(std::move(app)), dataFolder_(std::move(dataFolder)),
      configFolder_(std::move(configFolder)) {}

platform::Availability FileManagerMenu::availability() const {
    if (std::ranges::any_of(fileManagers, isInstalled))
        return {};
    return {Availability::State::unavailable,
            QStringLiteral("No file manager is installed in whose menu Skipnest can stand."),
            QStringLiteral("Choose files in Skipnest's own window, or install one of Thunar, "
                           "PCManFM, Dolphin, Nautilus, Nemo and Caja.")};
}

platform::Outcome FileManagerMenu::refresh() {
    const Command command{
        {installedProgram(files_, app_).path, QStringLiteral("run"), QStringLiteral("--add")},
        app_.bundleIdentifier};
    platform::Outcome result = platform::Done{};
    for (const FileManager& manager : fileManagers) {
        if (!isInstalled(manager))
            continue;
        QString path = (manager.base == FileManager::Base::data ? dataFolder_ : configFolder_) +
                       u'/' + QLatin1String(manager.file);
        if (path.endsWith(u'/'))
            path += scriptName();
        const QByteArray text = manager.text(command);
        if (!mayReplace(path, text))
            continue;
        if (platform::Outcome written = write(path, text); !written && result)
            result = std::move(written);
    }
    return result;
}

bool FileManagerMenu::mayReplace(const QString& path, const QByteArray& text) const {
    if (files_.kind(path) == platform::FileKind::none)
        return true;
    const auto present = files_.read(path, sizeLimit);
    return present && present->contains(marker) && *present != text;
}

platform::Outcome FileManagerMenu::write(const QString& path, const QByteArray& text) {
    if (platform::Outcome made = files_.createFolder(path.left(path.lastIndexOf(u'/'))); !made)
        return made;
    if (platform::Outcome written = platform::writeDurably(files_, path, text); !written)
        return written;
    // Scripts have to be executable, and Dolphin trusts no other service menus.
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return platform::Done{};
}

} // namespace skipnest::linuxdesktop
