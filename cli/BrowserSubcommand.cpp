// SPDX-License-Identifier: Apache-2.0
#include "cli/Subcommands.h"

#include "platform/BrowserExtensions.h"
#include "platform/ScriptRunner.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QStringBuilder>

namespace skipnest::cli {

using namespace Qt::StringLiterals;
using platform::BrowserExtensions;
using Browser = platform::ExtensibleBrowser;
using Host = Browser::Host;
using Packaging = Browser::Packaging;

namespace {

QString text(Host host) {
    switch (host) {
    case Host::installed:
        return u"installed"_s;
    case Host::missing:
        return u"missing"_s;
    case Host::outdated:
        return u"outdated"_s;
    case Host::unreachable:
        return u"unreachable"_s;
    }
    Q_UNREACHABLE();
}

QString text(Packaging packaging) {
    switch (packaging) {
    case Packaging::native:
        return u"native"_s;
    case Packaging::snap:
        return u"snap"_s;
    case Packaging::flatpak:
        return u"flatpak"_s;
    }
    Q_UNREACHABLE();
}

QJsonValue textOrNull(const QString& text) {
    return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}

QJsonObject report(const BrowserExtensions& extensions) {
    const QString folder = extensions.folder();
    QJsonArray rows;
    for (const Browser& browser : extensions.browsers())
        rows.append(QJsonObject{
            {u"name"_s, browser.name},
            {u"identifier"_s, browser.identifier},
            {u"packaging"_s, text(browser.packaging)},
            {u"host"_s, text(browser.host)},
            {u"manifest"_s, textOrNull(browser.manifest)},
            {u"connected"_s, browser.isConnected},
            {u"next"_s, textOrNull(platform::tabsAvailability(browser, folder).remedy)},
        });
    return {{u"extension"_s, textOrNull(folder)}, {u"browsers"_s, rows}};
}

using Change = platform::Outcome (BrowserExtensions::*)(const Browser&);

ExitStatus changeAll(BrowserExtensions& extensions, Change change) {
    bool isDone = true;
    for (const Browser& browser : extensions.browsers()) {
        if (browser.host == Host::unreachable)
            continue;
        if (const platform::Outcome outcome = (extensions.*change)(browser); !outcome) {
            (void)fail(browser.name % u": " % outcome.failure().detail);
            isDone = false;
        }
    }
    printJson(report(extensions));
    return isDone ? ExitStatus::done : ExitStatus::failed;
}

// Where browsers are asked by the system's own means there is nothing to install.
bool needsExtension(const Context& context) {
    if (!context.backend().ports().scripts.furtherBrowsers().isEmpty())
        return true;
    (void)fail(u"on this system browsers need no extension"_s);
    return false;
}

} // namespace

ExitStatus runBrowserInstall(const Arguments&, const Context& context) {
    if (!needsExtension(context))
        return ExitStatus::failed;
    BrowserExtensions& extensions = context.backend().ports().browserExtensions;
    if (const auto available = extensions.availability();
        available.state == platform::Availability::State::unavailable)
        return fail(available.reason % u' ' % available.remedy);
    return changeAll(extensions, &BrowserExtensions::install);
}

ExitStatus runBrowserRemove(const Arguments&, const Context& context) {
    return needsExtension(context)
               ? changeAll(context.backend().ports().browserExtensions, &BrowserExtensions::remove)
               : ExitStatus::failed;
}

ExitStatus runBrowserStatus(const Arguments&, const Context& context) {
    if (!needsExtension(context))
        return ExitStatus::failed;
    printJson(report(context.backend().ports().browserExtensions));
    return ExitStatus::done;
}

} // namespace skipnest::cli
