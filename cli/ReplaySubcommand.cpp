// SPDX-License-Identifier: Apache-2.0
#include "cli/Subcommands.h"

#include "app/AppDelegate.h"
#include "app/HotkeyListing.h"
#include "cli/TraceAgent.h"
#include "cli/TracePlayer.h"
#include "model/ConfigurationCoding.h"
#include "platform/sim/SimDesktop.h"

#include <QFile>
#include <QJsonDocument>

#include <cstdio>
#include <memory>

namespace skipnest::cli {

using platform::Outcome;
using platform::Result;

namespace {

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

    [[nodiscard]] QJsonObject snapshot() const override {
        return {
            {QStringLiteral("config"), model::toJson(delegate_->viewModel().config())},
            {QStringLiteral("hotkeys"), app::hotkeysJson(delegate_->hotkeys().registered())},
            {QStringLiteral("stats"), stats()},
            {QStringLiteral("panel"), desk_.panels().isPopoverShown()
                                          ? QJsonValue(QStringLiteral("popover"))
                                          : QJsonValue()},
        };
    }

private:
    // In memory, in the shape of the file.
    [[nodiscard]] QJsonObject stats() const {
        return QJsonDocument::fromJson(stats::encodeStats(delegate_->stats().store())).object();
    }

    sim::SimDesktop& desk_;
    std::unique_ptr<app::AppDelegate> delegate_;
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
