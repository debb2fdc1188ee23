// SPDX-License-Identifier: Apache-2.0
#include "cli/BrowserHosts.h"
#include "cli/Subcommands.h"

#include "platform/BrowserExtension.h"
#include "platform/FramedMessages.h"
#include "platform/ScriptRunner.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>
#include <QProcessEnvironment>
#include <QStringBuilder>

namespace skipnest::cli {

using namespace Qt::StringLiterals;
using Browser = BrowserHosts::Browser;
using Packaging = BrowserHosts::Packaging;
using State = BrowserHosts::State;

namespace {

constexpr int patience = 500; // ms, for an agent on the same machine

QString folderOf(const QString& path) {
    return path.left(path.lastIndexOf(u'/'));
}

// Both lie where they do beside the agent's executable, in a build as installed.
QString hostProgram(const platform::Ports& ports) {
    return folderOf(ports.app.bundlePath) % u"/skipnest-browser-host";
}

QString extensionFolder(const platform::Ports& ports) {
    for (const QStringView up : {u"/../..", u"/.."}) {
        const QString folder =
            QDir::cleanPath(folderOf(ports.app.bundlePath) % up % u"/share/skipnest/extension");
        if (ports.files.kind(folder % u"/manifest.json") == platform::FileKind::file)
            return folder;
    }
    return {};
}

BrowserHosts hosts(const platform::Ports& ports) {
    const QString path = QProcessEnvironment::systemEnvironment().value(u"PATH"_s);
    return {ports.files,
            {.home = ports.app.home,
             .configHome = folderOf(ports.app.supportFolder),
             .programs = path.split(u':', Qt::SkipEmptyParts),
             .host = hostProgram(ports)}};
}

// Identifiers of the browsers whose extension the running agent is connected to.
QJsonArray connectedBrowsers(const QString& runtimeFolder) {
    QLocalSocket socket;
    socket.connectToServer(platform::tabsSocketPath(runtimeFolder));
    if (!socket.waitForConnected(patience))
        return {};
    socket.write(platform::framedMessage(QByteArrayLiteral("{\"who\":1}")));
    platform::MessageReader reader(platform::longestTabsRequest);
    while (socket.waitForReadyRead(patience)) {
        const QByteArray bytes = socket.readAll();
        reader.append(bytes.constData(), bytes.size());
        if (const auto message = reader.next())
            return QJsonDocument::fromJson(*message).object().value(u"connected").toArray();
    }
    return {};
}

QString text(State state) {
    switch (state) {
    case State::installed:
        return u"installed"_s;
    case State::missing:
        return u"missing"_s;
    case State::outdated:
        return u"outdated"_s;
    case State::unreachable:
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

// What the person has to do, or why nothing helps.
QString nextStep(const Browser& browser, bool isConnected, const QString& extension) {
    switch (browser.state) {
    case State::unreachable:
        return u"This browser runs in a sandbox that starts no program outside of it. Use its "
               "ordinary package to have its tabs listed."_s;
    case State::missing:
    case State::outdated:
        return u"Run \"skipnest browser install\"."_s;
    case State::installed:
        break;
    }
    if (isConnected)
        return {};
    if (browser.needsSignedExtension)
        return u"Open about:debugging, choose \"This Firefox\", \"Load Temporary Add-on\", and "
               "manifest.json in "_s %
               extension %
               u". It stays until Firefox ends: release versions keep signed extensions only.";
    return u"Open chrome://extensions, switch on \"Developer mode\", choose \"Load unpacked\" and "
           "the folder "_s %
           extension % u'.';
}

QJsonObject report(const platform::Ports& ports, const QString& runtimeFolder) {
    const QString extension = extensionFolder(ports);
    const QJsonArray connected = connectedBrowsers(runtimeFolder);
    QJsonArray rows;
    for (const Browser& browser : hosts(ports).found()) {
        const bool isConnected =
            browser.packaging == Packaging::native && connected.contains(browser.identifier);
        QJsonObject row{
            {u"name"_s, browser.name},
            {u"identifier"_s, browser.identifier},
            {u"packaging"_s, text(browser.packaging)},
            {u"host"_s, text(browser.state)},
            {u"manifest"_s, browser.manifest.isEmpty() ? QJsonValue() : browser.manifest},
            {u"connected"_s, isConnected},
        };
        const QString step = nextStep(browser, isConnected, extension);
        row.insert(u"next"_s, step.isEmpty() ? QJsonValue() : step);
        rows.append(row);
    }
    return {{u"extension"_s, extension}, {u"browsers"_s, rows}};
}

using Change = platform::Outcome (BrowserHosts::*)(const Browser&);

ExitStatus changeAll(const Context& context, Change change) {
    const platform::Ports& ports = context.backend().ports();
    BrowserHosts all = hosts(ports);
    bool isDone = true;
    for (const Browser& browser : all.found()) {
        if (browser.state == State::unreachable)
            continue;
        if (const platform::Outcome outcome = (all.*change)(browser); !outcome) {
            (void)fail(browser.name % u": " % outcome.failure().detail);
            isDone = false;
        }
    }
    printJson(report(ports, context.runtimeFolder));
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
    const platform::Ports& ports = context.backend().ports();
    if (ports.files.kind(hostProgram(ports)) != platform::FileKind::file)
        return fail(hostProgram(ports) % u" is missing: install Skipnest again");
    return changeAll(context, &BrowserHosts::install);
}

ExitStatus runBrowserRemove(const Arguments&, const Context& context) {
    return needsExtension(context) ? changeAll(context, &BrowserHosts::remove) : ExitStatus::failed;
}

ExitStatus runBrowserStatus(const Arguments&, const Context& context) {
    if (!needsExtension(context))
        return ExitStatus::failed;
    printJson(report(context.backend().ports(), context.runtimeFolder));
    return ExitStatus::done;
}

} // namespace skipnest::cli
