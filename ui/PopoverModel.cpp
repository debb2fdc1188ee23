// SPDX-License-Identifier: Apache-2.0
#include "ui/PopoverModel.h"

#include "app/AppDelegate.h"
#include "app/MenuBarShell.h"
#include "model/RecordId.h"

#include <array>

namespace skipnest::ui {

using platform::PopoverRoute;
using platform::PopoverScreen;

PopoverModel::PopoverModel(app::AppDelegate& agent, QObject* parent)
    : QObject(parent), agent_(agent), list_(std::make_unique<ShortcutListScreenModel>(agent)),
      editor_(std::make_unique<ShortcutEditor>(agent)),
      importer_(std::make_unique<ImportModel>(agent)),
      exporter_(std::make_unique<ExportModel>(agent)),
      settings_(std::make_unique<SettingsModel>(agent)),
      feedback_(std::make_unique<FeedbackForm>(agent)),
      statistics_(std::make_unique<StatisticsCardModel>(agent)),
      challenge_(std::make_unique<ChallengeScreenModel>(agent)),
      crash_(std::make_unique<CrashReportModel>(agent)),
      browsers_(std::make_unique<BrowserSetup>(agent.ports())) {
    connect(editor_.get(), &ShortcutEditor::finished, this, &PopoverModel::back);
    connect(crash_.get(), &CrashReportModel::answered, this, &PopoverModel::back);
    connect(list_->banner(), &ListBanner::crashReportWanted, this,
            [this] { show(PopoverScreen::crash); });
}

PopoverModel::~PopoverModel() = default;

QString PopoverModel::screen() const {
    return platform::screenName(route_.screen);
}

void PopoverModel::setRoute(const PopoverRoute& route) {
    if (route.screen == PopoverScreen::add)
        editor_->startAdd(route.targetPath);
    if (route.screen == PopoverScreen::browsers)
        browsers_->open(route.browser);
    show(route.screen);
    route_ = route;
}

void PopoverModel::willShow(const PopoverRoute& route) {
    const bool isHome = route.screen == PopoverScreen::list;
    if (!(isHome && route_.screen == PopoverScreen::add && editor_->hasDraft()))
        setRoute(route);
    isShown_ = true;
    tellScreens();
}

void PopoverModel::tellScreens() {
    using View = StatisticsCardModel::View;
    statistics_->setView(!isShown_                                    ? View::none
                         : route_.screen == PopoverScreen::list       ? View::card
                         : route_.screen == PopoverScreen::statistics ? View::details
                                                                      : View::other);
    challenge_->setShown(isShown_ && route_.screen == PopoverScreen::challenge);
}

void PopoverModel::open(const QString& screen) {
    constexpr auto all =
        std::to_array({PopoverScreen::list, PopoverScreen::add, PopoverScreen::importing,
                       PopoverScreen::exporting, PopoverScreen::settings, PopoverScreen::feedback,
                       PopoverScreen::statistics, PopoverScreen::challenge, PopoverScreen::crash,
                       PopoverScreen::browsers});
    for (const PopoverScreen each : all)
        if (platform::screenName(each) == screen)
            return setRoute({each, {}});
}

void PopoverModel::edit(const QString& id) {
    if (const auto record = model::RecordId::fromText(id)) {
        editor_->startEdit(*record);
        show(PopoverScreen::add);
    }
}

void PopoverModel::back() {
    show(PopoverScreen::list);
}

void PopoverModel::close() {
    agent_.shell().closePopover();
}

void PopoverModel::addDropped(const QStringList& urls) {
    if (route_.screen == PopoverScreen::importing && !urls.isEmpty())
        return importer_->choose(urls.first());
    if (const auto added = agent_.shell().addDropped(urls); !added)
        Q_EMIT problem(added.failure().detail);
}

bool PopoverModel::isReadElsewhere() const {
    return route_.screen == PopoverScreen::browsers && browsers_->state() == u"waiting";
}

void PopoverModel::wasHidden() {
    editor_->pause();
    settings_->pause();
    isShown_ = false;
    tellScreens();
}

void PopoverModel::show(PopoverScreen screen) {
    const PopoverScreen before = std::exchange(route_.screen, screen);
    route_.targetPath.clear();
    route_.browser.clear();
    if (before == screen)
        return;
    switch (before) {
    case PopoverScreen::add:
        editor_->cancel();
        break;
    case PopoverScreen::settings:
        settings_->pause();
        break;
    case PopoverScreen::list:
    case PopoverScreen::importing:
    case PopoverScreen::exporting:
    case PopoverScreen::feedback:
    case PopoverScreen::statistics:
    case PopoverScreen::challenge:
    case PopoverScreen::crash:
    case PopoverScreen::browsers:
        break;
    }
    switch (screen) {
    case PopoverScreen::importing:
        importer_->refresh();
        break;
    case PopoverScreen::exporting:
        exporter_->reset();
        break;
    case PopoverScreen::settings:
        settings_->refresh();
        browsers_->refresh();
        break;
    case PopoverScreen::list:
    case PopoverScreen::add:
    case PopoverScreen::feedback:
    case PopoverScreen::statistics:
    case PopoverScreen::challenge:
    case PopoverScreen::crash:
    case PopoverScreen::browsers:
        break;
    }
    tellScreens();
    Q_EMIT screenChanged();
}

} // namespace skipnest::ui
