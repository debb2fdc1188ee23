// SPDX-License-Identifier: Apache-2.0
#include "ui/browser/BrowserSetup.h"

#include "platform/Workspace.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QStringBuilder>

#include <algorithm>
#include <utility>

namespace skipnest::ui {

using namespace Qt::StringLiterals;
using platform::Availability;
using platform::ExtensibleBrowser;
using Host = ExtensibleBrowser::Host;

namespace {

// One browser may be there in several packagings.
QString idOf(const ExtensibleBrowser& browser) {
    return browser.identifier % u' ' % QString::number(static_cast<int>(browser.packaging));
}

QString stateOf(const ExtensibleBrowser& browser) {
    if (browser.host == Host::unreachable)
        return u"unreachable"_s;
    if (browser.host != Host::installed)
        return u"new"_s;
    return browser.isConnected ? u"connected"_s : u"waiting"_s;
}

} // namespace

BrowserSetup::BrowserSetup(const platform::Ports& ports, QObject* parent)
    : QObject(parent), ports_(ports), rows_(this),
      connections_(ports.browserExtensions.observeConnections([this] { refresh(); })) {}

void BrowserSetup::refresh() {
    browsers_ = ports_.browserExtensions.browsers();
    const auto noteOf = [](const QString& state) {
        return state == u"connected" ? tr("connected")
               : state == u"waiting" ? tr("not connected")
               : state == u"new"     ? tr("not set up")
                                     : tr("cannot be reached");
    };
    std::vector<BrowserRow> rows;
    for (const Browser& browser : browsers_) {
        const QString state = stateOf(browser);
        rows.push_back({idOf(browser), titleOf(browser), state, noteOf(state)});
    }
    rows_.setRows(rows);
    if (rows_.rowOf(chosenId_) < 0)
        chosenId_.clear();
    Q_EMIT changed();
}

void BrowserSetup::open(const QString& identifier) {
    chosenId_.clear();
    refresh();
    // The packaging that can be reached comes first.
    const auto known = std::ranges::find(browsers_, identifier, &Browser::identifier);
    if (known != browsers_.end())
        choose(idOf(*known));
}

QString BrowserSetup::summary() const {
    QStringList parts;
    for (const BrowserRow& row : rows_.rows())
        parts.append(tr("%1: %2").arg(row.title, row.note));
    return parts.join(u" · "_s);
}

ExtensibleBrowser BrowserSetup::chosenBrowser() const {
    const auto known = std::ranges::find(browsers_, chosenId_, idOf);
    return known == browsers_.end() ? Browser() : *known;
}

QString BrowserSetup::state() const {
    return chosenId_.isEmpty() ? QString() : stateOf(chosenBrowser());
}

QString BrowserSetup::extension() const {
    const QString folder = ports_.browserExtensions.folder();
    return keepsSignedOnly() && !folder.isEmpty() ? QString(folder % u"/manifest.json") : folder;
}

void BrowserSetup::choose(const QString& id) {
    chosenId_ = id;
    problem_.clear();
    const Browser browser = chosenBrowser();
    const Availability all = ports_.browserExtensions.availability();
    if (all.state == Availability::State::unavailable)
        problem_ = all.reason % u' ' % all.remedy;
    else if (browser.host == Host::missing || browser.host == Host::outdated)
        install(browser);
    refresh();
}

void BrowserSetup::install(const Browser& browser) {
    if (const auto installed = ports_.browserExtensions.install(browser); !installed)
        problem_ = tr("%1 could not be told of Skipnest: %2")
                       .arg(browser.name, installed.failure().detail);
}

bool BrowserSetup::leave() {
    const bool wasChosen = !std::exchange(chosenId_, QString()).isEmpty();
    problem_.clear();
    Q_EMIT changed();
    return wasChosen;
}

void BrowserSetup::copy(const QString& text) const {
    QGuiApplication::clipboard()->setText(text);
}

void BrowserSetup::openFolder() {
    ports_.workspace.openFile(ports_.browserExtensions.folder(), [](const platform::Outcome&) {});
}

} // namespace skipnest::ui
