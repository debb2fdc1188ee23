// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/shell/XdgLoginItem.h"

#include "platform/linux/shell/InstalledProgram.h"

#include <gio/gdesktopappinfo.h>

#include <memory>

namespace skipnest::linuxdesktop {
namespace {

using platform::FileKind;

constexpr std::int64_t sizeLimit = 64 * 1024;

// As it stands in the file.
QString rawExec(GKeyFile* file) {
    char* text =
        g_key_file_get_value(file, G_KEY_FILE_DESKTOP_GROUP, G_KEY_FILE_DESKTOP_KEY_EXEC, nullptr);
    const QString exec = QString::fromUtf8(text);
    g_free(text);
    return exec;
}

bool flag(GKeyFile* file, const char* key, bool otherwise) {
    GError* error = nullptr;
    const bool value = g_key_file_get_boolean(file, G_KEY_FILE_DESKTOP_GROUP, key, &error) != 0;
    if (error == nullptr)
        return value;
    g_error_free(error);
    return otherwise;
}

} // namespace

XdgLoginItem::XdgLoginItem(platform::Files& files, platform::AppInfo app,
                           const QString& configFolder)
    : files_(files), app_(std::move(app)), folder_(configFolder + QStringLiteral("/autostart")),
      path_(folder_ + u'/' + app_.bundleIdentifier + QStringLiteral(".desktop")) {}

platform::Availability XdgLoginItem::availability() const {
    if (installedProgram(files_, app_).installed)
        return {};
    return {platform::Availability::State::limited,
            QStringLiteral("Skipnest runs from the folder in which it was built; if that goes, it "
                           "no longer starts at login."),
            QStringLiteral("Install it with: cmake --install BUILD-FOLDER --prefix ~/.local")};
}

bool XdgLoginItem::isRegistered() const {
    const auto text = files_.read(path_, sizeLimit);
    if (!text)
        return false;
    const std::unique_ptr<GKeyFile, decltype(&g_key_file_free)> file(g_key_file_new(),
                                                                     &g_key_file_free);
    if (!g_key_file_load_from_data(file.get(), text->constData(),
                                   static_cast<std::size_t>(text->size()), G_KEY_FILE_NONE,
                                   nullptr) ||
        flag(file.get(), G_KEY_FILE_DESKTOP_KEY_HIDDEN, false) ||
        !flag(file.get(), "X-GNOME-Autostart-enabled", true))
        return false;
    // GIO looks for a program whose name has a percent sign by its doubled one.
    if (rawExec(file.get()) == ownExec())
        return true;
    // Null where the program is not there, too.
    GDesktopAppInfo* entry = g_desktop_app_info_new_from_keyfile(file.get());
    if (entry == nullptr)
        return false;
    g_object_unref(entry);
    return true;
}

QString XdgLoginItem::ownExec() const {
    return execLine({installedProgram(files_, app_).path, QStringLiteral("--background")});
}

platform::Outcome XdgLoginItem::registerItem() {
    const QString entry = QStringLiteral("[Desktop Entry]\n"
                                         "Type=Application\n"
                                         "Name=Skipnest\n"
                                         "Comment=Jump to applications, files and folders by key\n"
                                         "Comment[de]=Mit einer Taste zu Programmen, Dateien und "
                                         "Ordnern springen\n"
                                         "Icon=%1\n"
                                         "Exec=%2\n"
                                         "Terminal=false\n"
                                         "X-GNOME-Autostart-enabled=true\n");
    if (const platform::Outcome made = files_.createFolder(folder_); !made)
        return made;
    return platform::writeDurably(files_, path_,
                                  entry.arg(app_.bundleIdentifier, ownExec()).toUtf8());
}

platform::Outcome XdgLoginItem::unregisterItem() {
    if (files_.kind(path_) == FileKind::none)
        return platform::Done{};
    return files_.remove(path_);
}

} // namespace skipnest::linuxdesktop
