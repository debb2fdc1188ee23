// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/browser/BrowserProcess.h"

#include "platform/linux/BundleIdentifiers.h"
#include "platform/linux/ProcessFacts.h"

#include <QFile>

#include <string_view>

namespace skipnest::linuxdesktop {
namespace {

struct Row {
    std::string_view executable;
    std::string_view desktopId;
};

constexpr Row table[] = {
    {"chrome", "google-chrome"},      {"chromium", "chromium"},   {"firefox", "firefox"},
    {"chromium-browser", "chromium"}, {"firefox-esr", "firefox"}, {"firefox-bin", "firefox"},
    {"msedge", "microsoft-edge"},     {"brave", "brave-browser"},
};

constexpr int nearest = 3;

// 0 where it cannot be told. The name in parentheses may itself hold spaces and parentheses.
std::int64_t parentOf(std::int64_t pid) {
    QFile file(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray line = file.read(1024);
    return line.mid(line.lastIndexOf(')') + 2).split(' ').value(1).toLongLong();
}

} // namespace

QString browserThatStarted(std::int64_t pid) {
    for (int i = 0; i < nearest; ++i) {
        pid = parentOf(pid);
        if (pid <= 1)
            break;
        if (const QString browser = browserOfExecutable(processFacts(pid).executable);
            !browser.isEmpty())
            return browser;
    }
    return {};
}

QString browserOfExecutable(const QString& path) {
    const QStringView name = QStringView(path).mid(path.lastIndexOf(u'/') + 1);
    for (const Row& row : table) {
        if (name == QLatin1String(row.executable.data(), qsizetype(row.executable.size())))
            return bundleIdentifierOf(
                QString::fromLatin1(row.desktopId.data(), qsizetype(row.desktopId.size())));
    }
    return {};
}

} // namespace skipnest::linuxdesktop
