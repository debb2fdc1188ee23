// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/LinuxHomeFolders.h"

#include <QDir>
#include <QStandardPaths>

namespace skipnest::linuxdesktop {

platform::HomeFolders linuxHomeFolders(const platform::AppInfo& app) {
    const auto folder = [&app](QStandardPaths::StandardLocation location) {
        const QString path = QDir::cleanPath(QStandardPaths::writableLocation(location));
        return path == app.home ? QString() : path;
    };
    return {
        .home = app.home,
        .downloads = folder(QStandardPaths::DownloadLocation),
        .documents = folder(QStandardPaths::DocumentsLocation),
        .desktop = folder(QStandardPaths::DesktopLocation),
        .pictures = folder(QStandardPaths::PicturesLocation),
        .movies = folder(QStandardPaths::MoviesLocation),
        .music = folder(QStandardPaths::MusicLocation),
    };
}

} // namespace skipnest::linuxdesktop
