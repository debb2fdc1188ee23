// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/browser/BrowserHosts.h"

#include "platform/BrowserExtension.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringBuilder>

#include <algorithm>
#include <utility>

namespace skipnest::linuxdesktop {

using namespace Qt::StringLiterals;
using platform::FileKind;
using platform::Outcome;
using Host = platform::ExtensibleBrowser::Host;
using Packaging = platform::ExtensibleBrowser::Packaging;

namespace {

constexpr std::int64_t largestManifest = 65'536;

enum class Family { chromium, firefox };

} // namespace

struct BrowserHosts::Row {
    QString name;
    QString identifier;
    Family family;
    QString folder; // in the configuration folder; of Firefox in the home folder
    QStringList programs;
    QString snap; // empty where there is none
    QString flatpak;
    QString extensionsPage;
};

const std::vector<BrowserHosts::Row>& BrowserHosts::table() {
    static const std::vector<Row> rows{
        {u"Google Chrome"_s,
         u"com.google.Chrome"_s,
         Family::chromium,
         u"google-chrome"_s,
         {u"google-chrome"_s, u"google-chrome-stable"_s},
         {},
         u"com.google.Chrome"_s,
         u"chrome://extensions"_s},
        {u"Chromium"_s,
         u"org.chromium.Chromium"_s,
         Family::chromium,
         u"chromium"_s,
         {u"chromium"_s, u"chromium-browser"_s},
         u"chromium"_s,
         u"org.chromium.Chromium"_s,
         u"chrome://extensions"_s},
        {u"Microsoft Edge"_s,
         u"com.microsoft.edgemac"_s,
         Family::chromium,
         u"microsoft-edge"_s,
         {u"microsoft-edge"_s, u"microsoft-edge-stable"_s},
         {},
         u"com.microsoft.Edge"_s,
         u"edge://extensions"_s},
        {u"Brave"_s,
         u"com.brave.Browser"_s,
         Family::chromium,
         u"BraveSoftware/Brave-Browser"_s,
         {u"brave-browser"_s, u"brave"_s},
         u"brave"_s,
         u"com.brave.Browser"_s,
         u"brave://extensions"_s},
        {u"Firefox"_s,
         u"org.mozilla.firefox"_s,
         Family::firefox,
         u".mozilla"_s,
         {u"firefox"_s, u"firefox-esr"_s},
         u"firefox"_s,
         u"org.mozilla.firefox"_s,
         u"about:debugging#/runtime/this-firefox"_s},
    };
    return rows;
}

BrowserHosts::BrowserHosts(platform::Files& files, Places places)
    : files_(files), places_(std::move(places)) {}

std::vector<BrowserHosts::Browser> BrowserHosts::found() const {
    std::vector<Browser> browsers;
    for (const Row& row : table()) {
        const bool isFirefox = row.family == Family::firefox;
        const QString folder = (isFirefox ? places_.home : places_.configHome) % u'/' % row.folder;
        Browser browser{.name = row.name,
                        .identifier = row.identifier,
                        .extensionsPage = row.extensionsPage,
                        .keepsSignedOnly = isFirefox};
        if (files_.kind(folder) == FileKind::folder || hasProgram(row)) {
            browser.manifest =
                folder % (isFirefox ? u"/native-messaging-hosts/" : u"/NativeMessagingHosts/") %
                platform::nativeHostName % u".json";
            browser.host = stateOf(browser.manifest, row);
            browsers.push_back(browser);
        }
        browser.manifest.clear();
        browser.host = Host::unreachable;
        const auto addSandboxed = [&](Packaging packaging, const QString& data) {
            browser.packaging = packaging;
            if (files_.kind(places_.home % data) == FileKind::folder)
                browsers.push_back(browser);
        };
        if (!row.snap.isEmpty())
            addSandboxed(Packaging::snap, u"/snap/" % row.snap);
        addSandboxed(Packaging::flatpak, u"/.var/app/" % row.flatpak);
    }
    return browsers;
}

Outcome BrowserHosts::install(const Browser& browser) {
    if (browser.host == Host::unreachable)
        return platform::Failure{platform::Failure::Kind::unavailable,
                                 browser.name % u" starts no program outside of its sandbox"};
    const auto row = std::ranges::find(table(), browser.identifier, &Row::identifier);
    if (const Outcome folder =
            files_.createFolder(browser.manifest.left(browser.manifest.lastIndexOf(u'/')));
        !folder)
        return folder;
    return platform::writeDurably(files_, browser.manifest, manifestFor(*row));
}

Outcome BrowserHosts::remove(const Browser& browser) {
    if (browser.host == Host::missing || browser.host == Host::unreachable)
        return platform::Done{};
    return files_.remove(browser.manifest);
}

QByteArray BrowserHosts::manifestFor(const Row& row) const {
    QJsonObject manifest{
        {u"name"_s, platform::nativeHostName.toString()},
        {u"description"_s, u"Connects Skipnest's browser extension to Skipnest"_s},
        {u"path"_s, places_.host},
        {u"type"_s, u"stdio"_s},
    };
    if (row.family == Family::firefox)
        manifest.insert(u"allowed_extensions"_s,
                        QJsonArray{platform::firefoxExtensionId.toString()});
    else
        manifest.insert(
            u"allowed_origins"_s,
            QJsonArray{QString(u"chrome-extension://" % platform::chromiumExtensionId % u'/')});
    return QJsonDocument(manifest).toJson();
}

Host BrowserHosts::stateOf(const QString& manifest, const Row& row) const {
    if (files_.kind(manifest) == FileKind::none)
        return Host::missing;
    const auto content = files_.read(manifest, largestManifest);
    return content && *content == manifestFor(row) ? Host::installed : Host::outdated;
}

bool BrowserHosts::hasProgram(const Row& row) const {
    return std::ranges::any_of(places_.programs, [&](const QString& folder) {
        // Snap puts its own beside the others.
        return folder.startsWith(u'/') && !folder.startsWith(u"/snap/") &&
               std::ranges::any_of(row.programs, [&](const QString& program) {
                   return files_.kind(folder % u'/' % program) == FileKind::file;
               });
    });
}

} // namespace skipnest::linuxdesktop
