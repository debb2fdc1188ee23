// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/browser/ExtensionTabs.h"

#include "platform/BrowserExtension.h"
#include "platform/linux/browser/TabListing.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QLocalSocket>
#include <QRegularExpression>

#include <algorithm>
#include <utility>

namespace skipnest::linuxdesktop {

using platform::Duration;
using platform::ScriptAnswer;
using platform::ScriptBudgetExceeded;
using platform::ScriptError;
using platform::ScriptText;
using Answer = TabsServer::Answer;

namespace {

ScriptError notConnected() {
    return {ExtensionTabs::notPermitted,
            QStringLiteral("No extension of this browser is connected.")};
}

// The browser's own words end up in a log, where no address may.
ScriptError refusal(const QJsonObject& answer) {
    constexpr qsizetype longest = 200;
    const QString said = answer.value(u"error").toString().left(longest);
    static const QRegularExpression address(QStringLiteral("/|:\\S"));
    return {ExtensionTabs::noSuchObject, said.isEmpty() || said.contains(address)
                                             ? QStringLiteral("The browser refused.")
                                             : said};
}

QJsonObject tabRequest(const QString& verb, std::int64_t window, std::int64_t tab) {
    return {{QStringLiteral("do"), verb},
            {QStringLiteral("window"), qint64(window)},
            {QStringLiteral("tab"), qint64(tab)}};
}

// Where the extension cuts them too; what is longer would only fail to arrive.
QString cut(const QString& text, qsizetype longest) {
    return text.left(longest);
}
constexpr qsizetype longestTitle = 1024;
constexpr qsizetype longestUrl = 4096;

constexpr int patienceWithAgent = 500; // ms; it is on this machine

QStringList connectedToAgent(const QString& socketPath) {
    QLocalSocket socket;
    socket.connectToServer(socketPath);
    if (!socket.waitForConnected(patienceWithAgent))
        return {};
    socket.write(platform::framedMessage(QByteArrayLiteral("{\"who\":1}")));
    platform::MessageReader reader(platform::longestTabsRequest);
    while (socket.waitForReadyRead(patienceWithAgent)) {
        const QByteArray bytes = socket.readAll();
        reader.append(bytes.constData(), bytes.size());
        const auto message = reader.next();
        if (!message)
            continue;
        QStringList browsers;
        for (const QJsonValue browser :
             QJsonDocument::fromJson(*message).object().value(u"connected").toArray())
            browsers.append(browser.toString());
        return browsers;
    }
    return {};
}

QRect rectangle(const QJsonArray& numbers) {
    return numbers.size() == 4 ? QRect(numbers[0].toInt(), numbers[1].toInt(), numbers[2].toInt(),
                                       numbers[3].toInt())
                               : QRect();
}

} // namespace

ExtensionTabs::ExtensionTabs(platform::Scheduler& scheduler, QString runtimeFolder,
                             TabsServer::Identify identify)
    : scheduler_(scheduler), socketPath_(platform::tabsSocketPath(runtimeFolder)),
      server_(scheduler, std::move(identify), [&scheduler, weak = std::weak_ptr(changed_)] {
          scheduler.post([weak] {
              if (const auto changed = weak.lock())
                  changed->notify();
          });
      }) {}

platform::Outcome ExtensionTabs::listen() {
    return server_.listen(socketPath_);
}

QStringList ExtensionTabs::connectedBrowsers() const {
    return server_.isListening() ? server_.connectedBrowsers() : connectedToAgent(socketPath_);
}

QStringList ExtensionTabs::browsers() {
    return {QStringLiteral("org.chromium.Chromium"), QStringLiteral("org.mozilla.firefox"),
            QStringLiteral("com.google.Chrome"), QStringLiteral("com.microsoft.edgemac"),
            QStringLiteral("com.brave.Browser")};
}

ScriptAnswer ExtensionTabs::run(const platform::EnumerateTabs& request, Duration budget) {
    selected_.reset();
    std::vector<TabsServer::Question> questions;
    for (const ConnectionId connection : server_.connections(request.bundleIdentifier))
        questions.push_back({connection, {{QStringLiteral("do"), QStringLiteral("enumerate")}}});
    if (questions.empty())
        return notConnected();
    const std::vector<Answer> answers = server_.ask(questions, budget);

    std::vector<std::pair<ConnectionId, QJsonObject>> profiles;
    for (std::size_t i = 0; i < answers.size(); ++i) {
        if (answers[i].state == Answer::State::given && answers[i].message.contains(u"windows"))
            profiles.emplace_back(questions[i].connection, answers[i].message);
    }
    if (profiles.empty()) {
        for (const Answer& answer : answers) {
            if (answer.state == Answer::State::late)
                return ScriptBudgetExceeded{};
            if (answer.state == Answer::State::given)
                return refusal(answer.message);
        }
        return notConnected();
    }
    std::ranges::stable_sort(profiles, [](const auto& a, const auto& b) {
        return a.second.value(u"focusedAt").toDouble() > b.second.value(u"focusedAt").toDouble();
    });
    std::vector<Section>& sections = listed_[request.bundleIdentifier];
    sections.clear();
    QString lines;
    std::int64_t windows = 0;
    for (const auto& [connection, answer] : profiles) {
        const TabListing listing = tabListing(answer, windows + 1);
        sections.push_back({connection, listing.windows});
        windows += listing.windows;
        lines += listing.lines;
    }
    return ScriptText{lines};
}

ScriptAnswer ExtensionTabs::run(const platform::ActivateTab& request, Duration budget) {
    selected_.reset();
    const auto connections = server_.connections(request.bundleIdentifier);
    if (connections.empty())
        return notConnected();
    const Place place = placeOf(request.bundleIdentifier, request.windowIndex, connections);
    const ScriptAnswer answer = select(
        {place.connection, tabRequest(QStringLiteral("activate"), place.window, request.tabIndex)},
        budget);
    const auto* found = std::get_if<ScriptText>(&answer);
    return found == nullptr ? answer : ScriptAnswer(ScriptText{});
}

ScriptAnswer ExtensionTabs::run(const platform::RelocateTab& request, Duration budget) {
    selected_.reset();
    const platform::Instant deadline = scheduler_.now() + budget;
    auto connections = server_.connections(request.bundleIdentifier);
    if (connections.empty())
        return notConnected();
    const Place place = placeOf(request.bundleIdentifier, request.windowIndex, connections);
    // Its own profile first, the others after it.
    std::ranges::stable_partition(connections,
                                  [&](ConnectionId id) { return id == place.connection; });
    ScriptAnswer answer = ScriptText{QStringLiteral("0")};
    for (const ConnectionId connection : connections) {
        const bool isHome = connection == place.connection;
        QJsonObject question = tabRequest(QStringLiteral("relocate"), isHome ? place.window : 0,
                                          isHome ? request.tabIndex : 0);
        question.insert(QStringLiteral("url"), cut(request.url, longestUrl));
        question.insert(QStringLiteral("title"), cut(request.title, longestTitle));
        answer = select({connection, question}, deadline - scheduler_.now());
        const auto* text = std::get_if<ScriptText>(&answer);
        if (text == nullptr || text->text == u"1")
            break;
    }
    return answer;
}

ExtensionTabs::Place ExtensionTabs::placeOf(const QString& browser, std::int64_t window,
                                            const std::vector<ConnectionId>& connections) const {
    std::int64_t before = 0;
    for (const Section& section : listed_.value(browser)) {
        if (window > before && window <= before + section.windows &&
            std::ranges::find(connections, section.connection) != connections.end())
            return {section.connection, window - before};
        before += section.windows;
    }
    return {connections.front(), window};
}

ScriptAnswer ExtensionTabs::select(const TabsServer::Question& question, Duration budget) {
    const Answer answer = server_.ask({question}, budget).front();
    switch (answer.state) {
    case Answer::State::late:
        return ScriptBudgetExceeded{};
    case Answer::State::gone:
        return notConnected();
    case Answer::State::given:
        break;
    }
    if (!answer.message.value(u"found").isBool())
        return refusal(answer.message);
    const bool isFound = answer.message.value(u"found").toBool();
    if (isFound)
        selected_ = Selected{answer.message.value(u"title").toString(),
                             rectangle(answer.message.value(u"frame").toArray())};
    return ScriptText{isFound ? QStringLiteral("1") : QStringLiteral("0")};
}

} // namespace skipnest::linuxdesktop
