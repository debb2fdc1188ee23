// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/LinuxAppInfo.h"

#include <QDir>
#include <QFile>
#include <QLocale>
#include <QStandardPaths>
#include <QUrl>

#include <array>
#include <optional>

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace skipnest::linuxdesktop {
namespace {

std::optional<QString> absoluteFolder(const QProcessEnvironment& environment,
                                      const QString& variable) {
    const QString value = environment.value(variable);
    if (!value.startsWith(u'/'))
        return std::nullopt;
    return QDir::cleanPath(value);
}

QString homeFolder(const QProcessEnvironment& environment) {
    if (const auto home = absoluteFolder(environment, QStringLiteral("HOME")))
        return *home;
    std::array<char, 16384> text{};
    passwd entry{};
    passwd* found = nullptr;
    if (::getpwuid_r(::geteuid(), &entry, text.data(), text.size(), &found) == 0 &&
        found != nullptr && found->pw_dir != nullptr && found->pw_dir[0] == '/')
        return QDir::cleanPath(QFile::decodeName(found->pw_dir));
    return QStringLiteral("/");
}

bool isOwnFolder(const QString& path) {
    struct stat status {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == ::geteuid();
}

// Avoids "//Skipnest" for the folder "/".
QString inside(const QString& folder, const QString& name) {
    return QDir::cleanPath(folder + u'/' + name);
}

// The folders of desktop entries. Those of Flatpak and Snap stand in XDG_DATA_DIRS only after the
// login that followed their installation.
QStringList entryFolders(const QProcessEnvironment& environment, const QString& home) {
    const QString own = absoluteFolder(environment, QStringLiteral("XDG_DATA_HOME"))
                            .value_or(inside(home, QStringLiteral(".local/share")));
    QString shared = environment.value(QStringLiteral("XDG_DATA_DIRS"));
    if (shared.isEmpty())
        shared = QStringLiteral("/usr/local/share:/usr/share");
    QStringList folders = {own, inside(own, QStringLiteral("flatpak/exports/share"))};
    folders += shared.split(u':', Qt::SkipEmptyParts);
    folders += {QStringLiteral("/var/lib/flatpak/exports/share"),
                QStringLiteral("/var/lib/snapd/desktop")};
    folders.removeIf([](const QString& folder) { return !folder.startsWith(u'/'); });
    for (QString& folder : folders)
        folder = inside(folder, QStringLiteral("applications"));
    folders.removeDuplicates();
    return folders;
}

// The build's web service. A build without one may be pointed at a server on this machine, which is
// how the stand-in is used in development and tests.
QString serviceAddress(const QProcessEnvironment& environment) {
    const QString built = QStringLiteral(SKIPNEST_SERVICE_URL);
    if (!built.isEmpty())
        return built;
    const QString local = environment.value(QStringLiteral("SKIPNEST_SERVICE_URL"));
    const QString host = QUrl(local).host();
    return host == u"127.0.0.1" || host == u"::1" ? local : QString();
}

} // namespace

platform::AppInfo linuxAppInfo(const QProcessEnvironment& environment) {
    const QString own = QStringLiteral("Skipnest");
    platform::AppInfo app;
    app.pid.value = ::getpid();
    app.bundlePath = QFile::symLinkTarget(QStringLiteral("/proc/self/exe"));
    app.bundleIdentifier = QStringLiteral("com.skipnest.Skipnest");
    app.version = QStringLiteral(SKIPNEST_VERSION);
    app.build = QStringLiteral(SKIPNEST_BUILD);
    app.home = homeFolder(environment);
    app.modifierStyle = platform::ModifierStyle::names;
    app.supportFolder = inside(absoluteFolder(environment, QStringLiteral("XDG_CONFIG_HOME"))
                                   .value_or(inside(app.home, QStringLiteral(".config"))),
                               own);
    app.logFolder = inside(absoluteFolder(environment, QStringLiteral("XDG_STATE_HOME"))
                               .value_or(inside(app.home, QStringLiteral(".local/state"))),
                           own);
    const auto runtime = absoluteFolder(environment, QStringLiteral("XDG_RUNTIME_DIR"));
    app.runtimeFolder = runtime && isOwnFolder(*runtime) ? inside(*runtime, own) : app.logFolder;
    app.installedApplications = entryFolders(environment, app.home);
    app.downloadsFolder = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
    app.desktopFolder = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    app.documentsFolder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    app.serviceAddress = serviceAddress(environment);
    const QStringList locale = QLocale::system().name().toLower().split(u'_');
    app.language = locale.first() == u"c" ? QString() : locale.first();
    app.country = locale.value(1);
    return app;
}

} // namespace skipnest::linuxdesktop
