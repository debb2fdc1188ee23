// SPDX-License-Identifier: Apache-2.0
#include "ui/onboarding/OnboardingModel.h"

#include "app/AppDelegate.h"
#include "platform/LoginItem.h"
#include "platform/StatusItem.h"
#include "ui/Theme.h"

#include <array>
#include <utility>

namespace skipnest::ui {

using model::ShortcutListViewModel;
using model::Theme;
using State = platform::Availability::State;

namespace {

constexpr std::array themes = {Theme::light, Theme::dark, Theme::brand};

} // namespace

OnboardingModel::OnboardingModel(app::AppDelegate& agent, QObject* parent)
    : QObject(parent), agent_(agent), shortcut_(agent), press_(agent), gesture_(agent),
      pings_(agent.pings().isAgreed()) {
    connect(&shortcut_, &FirstShortcut::targetChanged, this, &OnboardingModel::canGoOnChanged);
    connect(shortcut_.recorder(), &RecorderFace::changed, this, &OnboardingModel::canGoOnChanged);
    connect(this, &OnboardingModel::stepChanged, this, &OnboardingModel::canGoOnChanged);
    auto& list = agent.viewModel();
    connect(&list, &ShortcutListViewModel::themeChanged, this, &OnboardingModel::themeChanged);
    connect(&list, &ShortcutListViewModel::settingsChanged, this,
            &OnboardingModel::launchAtLoginChanged);
    // For the combos to propose and the gesture to warn of, some steps from here.
    agent.ledger().refresh();
}

void OnboardingModel::stop() {
    shortcut_.pause();
    press_.stop();
    gesture_.stop();
}

void OnboardingModel::enter(Step step) {
    stop();
    step_ = step;
    switch (step) {
    case Step::firstShortcut:
        shortcut_.start();
        break;
    case Step::tryIt:
        if (const auto id = shortcutToTry())
            press_.start(*id);
        break;
    case Step::gesture:
        gesture_.start();
        break;
    case Step::welcome:
    case Step::done:
        break;
    }
    Q_EMIT stepChanged();
}

void OnboardingModel::next() {
    if (!canGoOn())
        return;
    switch (step_) {
    case Step::welcome:
        return enter(Step::firstShortcut);
    case Step::firstShortcut:
        shortcut_.save();
        return enter(shortcutToTry() ? Step::tryIt : Step::gesture);
    case Step::tryIt:
        return enter(Step::gesture);
    case Step::gesture:
        gesture_.accept();
        return enter(Step::done);
    case Step::done:
        return finish();
    }
}

void OnboardingModel::back() {
    switch (step_) {
    case Step::welcome:
        return;
    case Step::firstShortcut:
        return enter(Step::welcome);
    case Step::tryIt:
        return enter(Step::firstShortcut);
    case Step::gesture:
        return enter(shortcutToTry() ? Step::tryIt : Step::firstShortcut);
    case Step::done:
        return enter(Step::gesture);
    }
}

void OnboardingModel::finish() {
    stop();
    // Whoever skips before the question was not asked.
    if (asksForPings() && step_ == Step::done)
        agent_.pings().setAgreed(pings_);
    agent_.shell().finishOnboarding();
}

bool OnboardingModel::canGoOn() const {
    return step_ != Step::firstShortcut || !shortcut_.hasTarget() || shortcut_.isComplete();
}

bool OnboardingModel::willSave() const {
    return step_ == Step::firstShortcut && shortcut_.isComplete();
}

std::optional<model::RecordId> OnboardingModel::shortcutToTry() const {
    auto& list = agent_.viewModel();
    if (const auto& made = shortcut_.savedId(); made && list.item(*made))
        return made;
    for (const auto& item : list.shortcuts())
        if (item.keyCombo && list.isConfirmed(item.id))
            return item.id;
    return std::nullopt;
}

QString OnboardingModel::stepName() const {
    switch (step_) {
    case Step::welcome:
        return QStringLiteral("welcome");
    case Step::firstShortcut:
        return QStringLiteral("firstShortcut");
    case Step::tryIt:
        return QStringLiteral("tryIt");
    case Step::gesture:
        return QStringLiteral("gesture");
    case Step::done:
        return QStringLiteral("done");
    }
    Q_UNREACHABLE();
}

int OnboardingModel::theme() const {
    return static_cast<int>(agent_.viewModel().theme());
}

QVariantList OnboardingModel::palettes() {
    QVariantList all;
    for (const Theme theme : themes) {
        const Palette& colors = palette(theme);
        all.append(QVariantMap{{QStringLiteral("window"), colors.window},
                               {QStringLiteral("surface"), colors.surface},
                               {QStringLiteral("border"), colors.border},
                               {QStringLiteral("text"), colors.text},
                               {QStringLiteral("secondaryText"), colors.secondaryText},
                               {QStringLiteral("accent"), colors.accent}});
    }
    return all;
}

void OnboardingModel::chooseTheme(int theme) {
    if (theme < 0 || static_cast<std::size_t>(theme) >= themes.size())
        return;
    agent_.viewModel().changeSettings([theme](model::AppConfiguration& configuration) {
        configuration.themeRaw = model::themeName(themes.at(static_cast<std::size_t>(theme)));
    });
}

QString OnboardingModel::statusItem() const {
    switch (agent_.ports().statusItem.availability().state) {
    case State::available:
        return QStringLiteral("available");
    case State::limited:
        return QStringLiteral("limited");
    case State::unavailable:
        return QStringLiteral("unavailable");
    }
    Q_UNREACHABLE();
}

bool OnboardingModel::asksForPings() const {
    return agent_.webService().isConfigured();
}

void OnboardingModel::setPings(bool wanted) {
    if (std::exchange(pings_, wanted) != wanted)
        Q_EMIT pingsChanged();
}

bool OnboardingModel::launchAtLogin() const {
    return agent_.viewModel().config().launchAtLogin;
}

bool OnboardingModel::canLaunchAtLogin() const {
    return agent_.ports().loginItem.availability().state != State::unavailable;
}

QString OnboardingModel::launchAtLoginProblem() const {
    const auto& login = agent_.ports().loginItem;
    if (!canLaunchAtLogin()) {
        const auto why = login.availability();
        return why.remedy.isEmpty() ? why.reason : why.reason + u' ' + why.remedy;
    }
    return launchAtLogin() && !login.isRegistered()
               ? tr("The system did not take it. It is tried again at the next start.")
               : QString();
}

void OnboardingModel::setLaunchAtLogin(bool wanted) {
    agent_.viewModel().changeSettings(
        [wanted](model::AppConfiguration& configuration) { configuration.launchAtLogin = wanted; });
}

} // namespace skipnest::ui
