// SPDX-License-Identifier: Apache-2.0
#include "platform/BrowserExtensions.h"

#include <QStringBuilder>

namespace skipnest::platform {

using namespace Qt::StringLiterals;
using State = Availability::State;

namespace {

QString howToLoad(const ExtensibleBrowser& browser, const QString& folder) {
    if (browser.keepsSignedOnly)
        return u"Open " % browser.extensionsPage %
               u" and choose \"Load Temporary Add-on\" and manifest.json in " % folder %
               u". It stays until " % browser.name %
               u" ends: release versions keep signed extensions only.";
    return u"Open " % browser.extensionsPage %
           u", switch on \"Developer mode\", choose \"Load unpacked\" and the folder " % folder %
           u'.';
}

} // namespace

Availability tabsAvailability(const ExtensibleBrowser& browser, const QString& folder) {
    switch (browser.host) {
    case ExtensibleBrowser::Host::unreachable:
        return {State::unavailable,
                browser.name % u" runs in a sandbox that starts no program outside of it.",
                u"Use its ordinary package to have its tabs listed."_s};
    case ExtensibleBrowser::Host::missing:
        return {State::limited, browser.name % u" has not been told of Skipnest.",
                u"Open \"Browser tabs\" in the settings, or run `skipnest browser install`."_s};
    case ExtensibleBrowser::Host::outdated:
        return {State::limited, browser.name % u" has been told of another Skipnest.",
                u"Open \"Browser tabs\" in the settings, or run `skipnest browser install`."_s};
    case ExtensibleBrowser::Host::installed:
        break;
    }
    if (browser.isConnected)
        return {};
    return {State::limited,
            browser.name % u"'s extension is not connected: it is not loaded, or " % browser.name %
                u" does not run.",
            howToLoad(browser, folder)};
}

QString titleOf(const ExtensibleBrowser& browser) {
    switch (browser.packaging) {
    case ExtensibleBrowser::Packaging::native:
        return browser.name;
    case ExtensibleBrowser::Packaging::snap:
        return browser.name % u" (Snap)";
    case ExtensibleBrowser::Packaging::flatpak:
        return browser.name % u" (Flatpak)";
    }
    Q_UNREACHABLE();
}

} // namespace skipnest::platform
