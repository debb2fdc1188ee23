// SPDX-License-Identifier: Apache-2.0
#include "cli/Subcommands.h"

#include "app/AppDelegate.h"
#include "app/HotkeyListing.h"
#include "cli/TraceAgent.h"
#include "cli/TracePlayer.h"
#include "model/ConfigurationCoding.h"
#include "platform/sim/SimDesktop.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <cstdio>
#include <memory>

namespace skipnest::cli {

using platform::Outcome;
using platform::Result;

namespace {

template <typename Row> QJsonArray titles(const std::vector<Row>& rows) {
    QJsonArray list;
    for (const Row& row : rows)
        list.append(row.title);
    return list;
}

// The bar as a panel line has it.
QJsonObject barFields(const switcher::SwitcherModel::Content& content) {
    using Level = switcher::SwitcherModel::Level;
    QJsonObject fields{{QStringLiteral("query"), content.query},
                       {QStringLiteral("titles"), titles(content.windows)},
                       {QStringLiteral("results"), titles(content.results)},
                       {QStringLiteral("pinned"), content.isPinned}};
    switch (content.level) {
    case Level::windows:
        fields[QStringLiteral("state")] = QStringLiteral("windows");
        fields[QStringLiteral("selected")] = content.selWin;
        break;
    case Level::tabs:
        fields[QStringLiteral("state")] = QStringLiteral("tabs");
        fields[QStringLiteral("selected")] = content.selTab;
        fields[QStringLiteral("titles")] = titles(content.tabs);
        break;
    case Level::search:
        fields[QStringLiteral("state")] = QStringLiteral("search");
        fields[QStringLiteral("selected")] = content.selResult;
        break;
    }
    return fields;
}

// The whole program on the simulated desktop.
class ReplayAgent final : public trace::TraceAgent {
public:
    explicit ReplayAgent(sim::SimDesktop& desk) : desk_(desk) {}

    Outcome start() override {
        delegate_ = std::make_unique<app::AppDelegate>(
            desk_.ports(), app::AppDelegate::Options{
                               .setup = app::AppDelegate::Options::Setup::countsAsDone,
                               .updates = desk_.http().hasAnswer(QStringLiteral("/version.json"))
                                              ? app::WebClients::Updates::check
                                              : app::WebClients::Updates::leave,
                               .quit = {},
                           });
        QObject::connect(&bar(), &switcher::SwitcherModel::changed, &context_,
                         [this] { noteBar(); });
        delegate_->launch();
        return platform::Done{};
    }

    Outcome changeSettings(const QJsonObject& set) override {
        QJsonObject document = model::toJson(delegate_->viewModel().config());
        for (auto key = set.begin(); key != set.end(); ++key)
            document.insert(key.key(), key.value());
        const Result<model::AppConfiguration> changed = model::fromJson(document);
        if (!changed)
            return changed.failure();
        delegate_->storage().save(*changed);
        delegate_->viewModel().reload();
        return platform::Done{};
    }

    Outcome hover(int index) override {
        if (!delegate_->switcher().isOpen())
            return noPanel();
        bar().onHoverWindow(index);
        return platform::Done{};
    }

    Outcome pick(int index) override {
        if (!delegate_->switcher().isOpen())
            return noPanel();
        switch (bar().content().level) {
        case Level::windows:
            bar().onPickWindow(index);
            break;
        case Level::tabs:
            bar().onPickTab(index);
            break;
        case Level::search:
            bar().onPickResult(index);
            break;
        }
        return platform::Done{};
    }

    [[nodiscard]] QJsonObject snapshot() const override {
        return {
            {QStringLiteral("config"), model::toJson(delegate_->viewModel().config())},
            {QStringLiteral("hotkeys"), app::hotkeysJson(delegate_->hotkeys().registered())},
            {QStringLiteral("stats"), stats()},
            {QStringLiteral("panel"), openPanel()},
        };
    }

private:
    using Level = switcher::SwitcherModel::Level;

    [[nodiscard]] switcher::SwitcherModel& bar() { return delegate_->switcher().model(); }

    [[nodiscard]] static Outcome noPanel() {
        return platform::Failure{platform::Failure::Kind::refused,
                                 QStringLiteral("no panel is open")};
    }

    [[nodiscard]] QJsonValue openPanel() const {
        if (delegate_->switcher().isOpen())
            return QStringLiteral("switcher");
        return desk_.panels().isPopoverShown() ? QJsonValue(QStringLiteral("popover"))
                                               : QJsonValue();
    }

    // What of the bar a trace tells; some changes of it a trace does not show.
    void noteBar() {
        const QJsonObject shown =
            delegate_->switcher().isOpen()
                ? barFields(bar().content())
                : QJsonObject{{QStringLiteral("state"), QStringLiteral("closed")}};
        if (shown == noted_)
            return;
        noted_ = shown;
        desk_.journal().panel(QStringLiteral("switcher"), shown);
    }

    // In memory, in the shape of the file.
    [[nodiscard]] QJsonObject stats() const {
        return QJsonDocument::fromJson(stats::encodeStats(delegate_->stats().store())).object();
    }

    sim::SimDesktop& desk_;
    std::unique_ptr<app::AppDelegate> delegate_;
    QJsonObject noted_;
    QObject context_; // the connection ends with this
};

} // namespace

ExitStatus runReplay(const Arguments& arguments, const Context&) {
    const QString& path = arguments.positional.first();
    QFile file(path);
    const bool opened =
        path == u"-" ? file.open(stdin, QFile::ReadOnly) : file.open(QFile::ReadOnly);
    if (!opened)
        return fail(path + QStringLiteral(": ") + file.errorString());
    sim::SimDesktop desk;
    ReplayAgent agent(desk);
    trace::TracePlayer player(desk, agent, [](const QByteArray& line) {
        std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stdout);
        std::fputc('\n', stdout);
    });
    const Outcome played = player.play(file);
    std::fflush(stdout);
    return played ? ExitStatus::done : fail(path + QStringLiteral(": ") + played.failure().detail);
}

} // namespace skipnest::cli
