// SPDX-License-Identifier: Apache-2.0
#include "voice/GatheredTargets.h"

#include "platform/Files.h"
#include "platform/Workspace.h"
#include "switcher/WindowGathering.h"
#include "voice/FileLookup.h"

#include <QDir>
#include <QStringBuilder>
#include <QUrl>

#include <algorithm>
#include <array>
#include <utility>

namespace skipnest::voice {

using namespace Qt::StringLiterals;
using model::ShortcutItem;
using platform::FileKind;
using platform::HomeFolders;
using platform::RunningApplication;
using switcher::AppWindows;
using switcher::BrowserTabs;
using Kind = JumpTarget::Kind;
using Reach = std::shared_ptr<JumpReach>;

namespace {

struct StandardFolder {
    QStringView englishName;
    QString HomeFolders::*path;
};
constexpr auto standardFolders = std::to_array<StandardFolder>({
    {u"Downloads", &HomeFolders::downloads},
    {u"Documents", &HomeFolders::documents},
    {u"Desktop", &HomeFolders::desktop},
    {u"Pictures", &HomeFolders::pictures},
    {u"Movies", &HomeFolders::movies},
    {u"Music", &HomeFolders::music},
});

QString placeAt(const QString& path) {
    return path.isEmpty() ? QString() : QDir::cleanPath(path);
}

QString placeOf(const RunningApplication& app) {
    if (!app.bundlePath.isEmpty())
        return placeAt(app.bundlePath);
    return app.bundleIdentifier.isEmpty() ? QString() : u"bundle:"_s % app.bundleIdentifier;
}

std::optional<QUrl> fileUrl(const QString& path) {
    return path.isEmpty() ? std::nullopt : std::optional(QUrl::fromLocalFile(path));
}

Kind kindOf(ShortcutItem::TargetType type) {
    switch (type) {
    case ShortcutItem::TargetType::application:
        return Kind::app;
    case ShortcutItem::TargetType::folder:
        return Kind::folder;
    case ShortcutItem::TargetType::file:
        break;
    }
    return Kind::file;
}

void addFolders(TargetCollector& collector, const Reach& reach, const HomeFolders& folders) {
    const auto add = [&](const QString& title, const QString& path) {
        collector.add({.title = title,
                       .subtitle = u"Folder"_s,
                       .kind = Kind::folder,
                       .url = fileUrl(path),
                       .commit = [reach, path] { reach->open(path, Kind::folder); }},
                      placeAt(path), TargetCollector::Names::several);
    };
    const auto exists = [&files = reach->ports.files](const QString& path) {
        return !path.isEmpty() && files.kind(path) == FileKind::folder;
    };
    for (const StandardFolder& folder : standardFolders) {
        const QString& path = folders.*folder.path;
        if (!exists(path))
            continue;
        add(reach->ports.workspace.displayName(path), path);
        add(folder.englishName.toString(), path);
    }
    if (exists(folders.home))
        add(u"Home"_s, folders.home);
}

} // namespace

std::vector<JumpTarget> GatheredTargets::targets(const Reach& reach,
                                                 const HomeFolders& folders) const {
    TargetCollector collector;
    addShortcuts(collector, reach, folders.home);
    addApplications(collector, reach);
    addFolders(collector, reach, folders);
    for (const platform::InstalledApplication& app : installed)
        collector.add({.title = app.name,
                       .kind = Kind::app,
                       .url = fileUrl(app.path),
                       .commit = [reach, path = app.path] { reach->open(path, Kind::app); }},
                      placeAt(app.path));
    addTabs(collector, reach);
    addWindows(collector, reach);
    return std::move(collector).take();
}

bool GatheredTargets::isInFront(const RunningApplication& app) const {
    return hasFront && running.front().pid == app.pid;
}

void GatheredTargets::addShortcuts(TargetCollector& collector, const Reach& reach,
                                   const QString& home) const {
    for (const ShortcutItem& item : shortcuts) {
        const Kind kind = kindOf(item.targetType);
        JumpTarget target{.title = item.name, .kind = kind, .url = fileUrl(item.targetPath)};
        target.hot = true;
        if (kind == Kind::folder)
            target.subtitle = u"Folder"_s;
        else if (kind == Kind::file)
            target.subtitle =
                shortPath(item.targetPath.left(item.targetPath.lastIndexOf(u'/')), home);
        target.commit = [reach, item, kind] { reach->jump(item, kind); };
        collector.add(std::move(target), placeAt(item.targetPath));
    }
}

void GatheredTargets::addApplications(TargetCollector& collector, const Reach& reach) const {
    for (const RunningApplication& app : running) {
        JumpTarget target{.title = app.name, .kind = Kind::app, .url = fileUrl(app.bundlePath)};
        target.commit = [reach, app] { reach->activate(app); };
        collector.add(std::move(target), placeOf(app));
    }
}

void GatheredTargets::addTabs(TargetCollector& collector, const Reach& reach) const {
    for (const Tabs& listed : tabs) {
        for (const BrowserTabs::BrowserTab& tab : listed.tabs) {
            const QString host = QUrl(tab.url).host();
            if (tab.title.isEmpty() && host.isEmpty())
                continue;
            JumpTarget target{.title = tab.title.isEmpty() ? host : tab.title,
                              .subtitle = host,
                              .kind = Kind::tab,
                              .owner = listed.browser.name};
            target.current = isInFront(listed.browser) && tab.active && tab.windowIndex == 1;
            target.commit = [reach, tab, browser = listed.browser] {
                reach->tabs.activate(tab, browser);
            };
            collector.add(std::move(target), {});
        }
    }
}

void GatheredTargets::addWindows(TargetCollector& collector, const Reach& reach) const {
    for (const Windows& listed : windows) {
        // A browser's window is there as the tab that it shows.
        std::vector<switcher::Win> shown;
        for (const Tabs& known : tabs) {
            if (known.browser.pid != listed.app.pid)
                continue;
            shown = switcher::groupTabs(known.tabs);
            switcher::pairWithWindows(shown, listed.windows);
        }
        for (const AppWindows::Info& window : listed.windows) {
            if (std::ranges::find(shown, window.element, &switcher::Win::element) != shown.end())
                continue;
            JumpTarget target{.title = window.title,
                              .subtitle = listed.app.name,
                              .kind = Kind::window,
                              .owner = listed.app.name};
            target.current = isInFront(listed.app) && window.element == focused;
            target.commit = [reach, window, app = listed.app] {
                reach->windows.raise(window.element, app, window.title);
            };
            collector.add(std::move(target), {});
        }
    }
}

} // namespace skipnest::voice
