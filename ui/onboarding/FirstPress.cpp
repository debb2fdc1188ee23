// SPDX-License-Identifier: Apache-2.0
#include "ui/onboarding/FirstPress.h"

#include "app/AppDelegate.h"
#include "app/ReadyBindings.h"
#include "platform/HotkeyBackend.h"
#include "platform/KeyboardLayout.h"
#include "ui/ComboWording.h"
#include "ui/editor/PlainLine.h"

#include <QClipboard>
#include <QGuiApplication>

#include <algorithm>

namespace skipnest::ui {

using hotkeys::HotkeyAction;
using hotkeys::HotkeyManager;
using hotkeys::PlannedHotkey;

namespace {

using namespace std::chrono_literals;

// An application that has to start needs about a second to show its window.
constexpr platform::Duration timeToLookAround = 1500ms;

} // namespace

FirstPress::FirstPress(app::AppDelegate& agent, QObject* parent) : QObject(parent), agent_(agent) {}

void FirstPress::start(const model::RecordId& id) {
    stop();
    const platform::Ports& ports = agent_.ports();
    const bool isSame = id_ == id;
    id_ = id;
    if (const auto item = agent_.viewModel().item(id)) {
        name_ = plainLine(item->name);
        path_ = item->targetPath;
        keys_ = comboKeys(item->keyCombo, ports.keyboardLayout,
                          modifierStyle(ports.app, ports.defaults));
    }
    presses_ =
        agent_.hotkeys().observePresses([this](const PlannedHotkey& hotkey, platform::Instant) {
            if (hotkey.action == HotkeyAction::jump && hotkey.item && hotkey.item->id == id_)
                pressed();
        });
    // Whoever comes back to the step has seen that it works.
    if (!isSame || state_ != State::arrived)
        enter(stateAtStart());
}

void FirstPress::stop() {
    presses_.reset();
    comeBack_.reset();
}

FirstPress::State FirstPress::stateAtStart() const {
    if (agent_.ports().hotkeys.availability().state == platform::Availability::State::unavailable)
        return State::boundByDesktop;
    const auto refused = agent_.hotkeys().refused();
    const bool isRefused = std::ranges::any_of(refused, [this](const HotkeyManager::Entry& entry) {
        return entry.hotkey.action == HotkeyAction::jump && entry.hotkey.item &&
               entry.hotkey.item->id == id_;
    });
    return isRefused ? State::refused : State::waiting;
}

void FirstPress::enter(State state) {
    state_ = state;
    Q_EMIT changed();
}

void FirstPress::pressed() {
    enter(State::arrived);
    comeBack_ = agent_.ports().scheduler.after(timeToLookAround, "onboarding-return",
                                               [this] { agent_.shell().showOnboarding(); });
}

QString FirstPress::stateName() const {
    switch (state_) {
    case State::waiting:
        return QStringLiteral("waiting");
    case State::arrived:
        return QStringLiteral("arrived");
    case State::refused:
        return QStringLiteral("refused");
    case State::boundByDesktop:
        return QStringLiteral("boundByDesktop");
    }
    Q_UNREACHABLE();
}

QString FirstPress::reason() const {
    return agent_.ports().hotkeys.availability().reason;
}

void FirstPress::copyBindings(const QString& desktop) {
    using app::BindingsFor;
    const BindingsFor wanted = desktop == u"gnome" ? BindingsFor::gnome
                               : desktop == u"kde" ? BindingsFor::kde
                                                   : BindingsFor::sway;
    const platform::Ports& ports = agent_.ports();
    QGuiApplication::clipboard()->setText(app::readyBindings(
        agent_.viewModel().shortcuts(), wanted, ports.app.bundlePath, ports.keyboardLayout));
}

} // namespace skipnest::ui
