// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/shell/ThemeIcons.h"

#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QPainter>

#include <gio/gio.h>

#include <algorithm>

namespace skipnest::linuxdesktop {
namespace {

// Fifty shortcuts at twice the size of a list row and twenty search results fit.
constexpr int cacheBytes = 2 * 1024 * 1024;

QStringList dataFolders() {
    QStringList folders{QFile::decodeName(g_get_user_data_dir())};
    for (const char* const* folder = g_get_system_data_dirs(); *folder != nullptr; ++folder)
        folders.append(QFile::decodeName(*folder));
    return folders;
}

// What GTK programs of this person use; on desktops that Qt does not know it is the only word on
// the icon theme.
QString gtkIconTheme() {
    GKeyFile* file = g_key_file_new();
    char* path = g_build_filename(g_get_user_config_dir(), "gtk-3.0", "settings.ini", nullptr);
    QString theme;
    if (g_key_file_load_from_file(file, path, G_KEY_FILE_NONE, nullptr)) {
        char* text = g_key_file_get_string(file, "Settings", "gtk-icon-theme-name", nullptr);
        theme = QString::fromUtf8(text);
        g_free(text);
    }
    g_free(path);
    g_key_file_free(file);
    return theme;
}

bool isInstalled(const QString& theme) {
    return std::ranges::any_of(QIcon::themeSearchPaths(), [&](const QString& folder) {
        return QFileInfo::exists(folder + u'/' + theme + QStringLiteral("/index.theme"));
    });
}

// A bare desktop names the theme "hicolor", which has applications' icons but none for folders and
// files; any whole theme that is installed fills in. Icons without a theme lie in "pixmaps".
void prepareThemes() {
    QStringList loose = QIcon::fallbackSearchPaths();
    for (const QString& folder : dataFolders())
        loose << folder + QStringLiteral("/pixmaps") << folder + QStringLiteral("/icons");
    loose.append(QDir::homePath() + QStringLiteral("/.icons"));
    loose.removeDuplicates();
    QIcon::setFallbackSearchPaths(loose);
    for (const QString& theme :
         {gtkIconTheme(), QStringLiteral("Adwaita"), QStringLiteral("breeze"),
          QStringLiteral("Papirus"), QStringLiteral("elementary-xfce"), QStringLiteral("Yaru"),
          QStringLiteral("mate"), QStringLiteral("gnome")}) {
        if (!theme.isEmpty() && isInstalled(theme)) {
            QIcon::setFallbackThemeName(theme);
            return;
        }
    }
}

QStringList contentIconNames(const char* type) {
    QStringList names;
    GIcon* icon = g_content_type_get_icon(type);
    if (G_IS_THEMED_ICON(icon)) {
        for (const char* const* found = g_themed_icon_get_names(G_THEMED_ICON(icon));
             *found != nullptr; ++found)
            names.append(QString::fromUtf8(*found));
    }
    g_object_unref(icon);
    return names;
}

QIcon namedIcon(QString name) {
    if (name.startsWith(u'/'))
        return QIcon(name);
    // Some entries name a file of the theme.
    for (const char* ending : {".png", ".svg", ".xpm"}) {
        if (name.endsWith(QLatin1String(ending)))
            name.chop(4);
    }
    return QIcon::fromTheme(name);
}

// Themes have fixed sizes, and not every drawing is square.
QImage fitted(const QPixmap& pixmap, int pixels) {
    QImage drawn = pixmap.toImage();
    if (drawn.width() != pixels && drawn.height() != pixels)
        drawn = drawn.scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QImage square(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    square.fill(Qt::transparent);
    QPainter painter(&square);
    painter.drawImage((pixels - drawn.width()) / 2, (pixels - drawn.height()) / 2, drawn);
    return square;
}

} // namespace

ThemeIcons::ThemeIcons(DesktopEntries& entries) : entries_(entries), cache_(cacheBytes) {}

bool ThemeIcons::icon(const QString& path, int pixels, QImage& image) {
    if (!std::exchange(prepared_, true))
        prepareThemes();
    pixels = std::clamp(pixels, 1, 512);
    for (const QString& name : iconNames(path)) {
        const QString key = name + u'\n' + QString::number(pixels);
        if (const QImage* known = cache_.object(key)) {
            image = *known;
            return true;
        }
        const QPixmap pixmap = namedIcon(name).pixmap(QSize(pixels, pixels), 1.0);
        if (pixmap.isNull())
            continue;
        image = fitted(pixmap, pixels);
        cache_.insert(key, new QImage(image), static_cast<int>(image.sizeInBytes()));
        return true;
    }
    return false;
}

QStringList ThemeIcons::iconNames(const QString& path) {
    if (const DesktopEntry* entry = entries_.entry(path))
        return entry->icon.isEmpty() ? QStringList() : QStringList(entry->icon);
    if (QFileInfo(path).isDir())
        return contentIconNames("inode/directory");
    char* type = g_content_type_guess(QFile::encodeName(path).constData(), nullptr, 0, nullptr);
    const QStringList names = contentIconNames(type);
    g_free(type);
    return names;
}

} // namespace skipnest::linuxdesktop
