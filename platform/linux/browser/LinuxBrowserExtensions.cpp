// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/browser/LinuxBrowserExtensions.h"

#include <QDir>
#include <QStringBuilder>

namespace skipnest::linuxdesktop {

using namespace Qt::StringLiterals;
using platform::Availability;
using platform::ExtensibleBrowser;
using platform::Failure;
using platform::FileKind;
using platform::Outcome;

namespace {

QString folderOf(const QString& path) {
    return path.left(path.lastIndexOf(u'/'));
}

QString hostProgram(const QString& programFolder) {
    return programFolder % u"/skipnest-browser-host";
}

BrowserHosts::Places places(const platform::AppInfo& app, const QProcessEnvironment& environment) {
    return {.home = app.home,
            .configHome = folderOf(app.supportFolder),
            .programs = environment.value(u"PATH"_s).split(u':', Qt::SkipEmptyParts),
            .host = hostProgram(folderOf(app.bundlePath))};
}

} // namespace

LinuxBrowserExtensions::LinuxBrowserExtensions(platform::Files& files, const platform::AppInfo& app,
                                               const QProcessEnvironment& environment,
                                               ExtensionTabs& tabs)
    : files_(files), programFolder_(folderOf(app.bundlePath)),
      hosts_(files, places(app, environment)), tabs_(tabs) {}

Availability LinuxBrowserExtensions::availability() const {
    if (files_.kind(hostProgram(programFolder_)) == FileKind::file && !folder().isEmpty())
        return {};
    return {Availability::State::unavailable,
            u"The program or the extension for browsers is missing from this installation."_s,
            u"Install Skipnest again."_s};
}

std::vector<ExtensibleBrowser> LinuxBrowserExtensions::browsers() const {
    std::vector<ExtensibleBrowser> found = hosts_.found();
    if (found.empty())
        return found;
    const QStringList connected = tabs_.connectedBrowsers();
    for (ExtensibleBrowser& browser : found)
        browser.isConnected = browser.host != ExtensibleBrowser::Host::unreachable &&
                              connected.contains(browser.identifier);
    return found;
}

// Installed beside the agent's own files, and in a build where it would be installed.
QString LinuxBrowserExtensions::folder() const {
    for (const QStringView up : {u"/../..", u"/.."}) {
        const QString folder = QDir::cleanPath(programFolder_ % up % u"/share/skipnest/extension");
        if (files_.kind(folder % u"/manifest.json") == FileKind::file)
            return folder;
    }
    return {};
}

Outcome LinuxBrowserExtensions::install(const ExtensibleBrowser& browser) {
    if (const QString host = hostProgram(programFolder_); files_.kind(host) != FileKind::file)
        return Failure{Failure::Kind::notFound, host % u" is missing: install Skipnest again"};
    return hosts_.install(browser);
}

Outcome LinuxBrowserExtensions::remove(const ExtensibleBrowser& browser) {
    return hosts_.remove(browser);
}

} // namespace skipnest::linuxdesktop
