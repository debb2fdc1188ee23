// SPDX-License-Identifier: Apache-2.0
#include "hotkeys/KeyRecorderViewModel.h"

#include "hotkeys/HotkeyManager.h"
#include "model/ComboRules.h"

#include <algorithm>
#include <array>
#include <utility>

namespace skipnest::hotkeys {

using model::KeyCombo;
using model::ModifierFlags;
using model::ShortcutItem;
using platform::Availability;
using platform::CapturedKey;
using platform::DesktopShortcut;
using platform::EventFlags;
using platform::Failure;

namespace {

// The manager's numbers start at 1: a press of the trial, if one came, is nobody's.
constexpr platform::HotkeyIdentifier trialIdentifier{0};

// Caps Lock and the function flag are no part of a combo.
ModifierFlags modifierFlags(EventFlags flags) {
    constexpr auto pairs = std::to_array<std::pair<std::uint64_t, ModifierFlags>>({
        {EventFlags::command, ModifierFlags::command},
        {EventFlags::alternate, ModifierFlags::option},
        {EventFlags::control, ModifierFlags::control},
        {EventFlags::shift, ModifierFlags::shift},
    });
    ModifierFlags modifiers;
    for (const auto& [bit, flag] : pairs) {
        if (flags.contains(bit))
            modifiers = modifiers | flag;
    }
    return modifiers;
}

QString inBrackets(const QString& action) {
    return action.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(action);
}

// What a derived or global hotkey does, as a part of a sentence.
QString deed(const PlannedHotkey& hotkey) {
    switch (hotkey.action) {
    case HotkeyAction::jump:
        return QStringLiteral("opens \"%1\"").arg(hotkey.item->name);
    case HotkeyAction::hide:
        return QStringLiteral("hides \"%1\"").arg(hotkey.item->name);
    case HotkeyAction::nextWindow:
        return QStringLiteral("goes to the next window");
    case HotkeyAction::previousWindow:
        return QStringLiteral("goes to the previous window");
    case HotkeyAction::voice:
        return QStringLiteral("starts the voice search");
    }
    Q_UNREACHABLE();
}

} // namespace

KeyRecorderViewModel::KeyRecorderViewModel(const platform::Ports& ports, HotkeyManager& hotkeys,
                                           model::ShortcutListViewModel& shortcutListViewModel,
                                           QObject* parent)
    : QObject(parent), ports_(ports), hotkeys_(hotkeys),
      shortcutListViewModel_(&shortcutListViewModel) {
    connect(&shortcutListViewModel, &QObject::destroyed, this, [this] { stopRecording(); });
}

KeyRecorderViewModel::~KeyRecorderViewModel() {
    localMonitor_.reset();
    resumeHotkeys();
}

QString KeyRecorderViewModel::conflictMessage() const {
    if (!state_.conflict)
        return {};
    const Conflict& conflict = *state_.conflict;
    const platform::KeyboardLayout& layout = ports_.keyboardLayout;
    switch (conflict.kind) {
    case Conflict::Kind::noModifier:
    case Conflict::Kind::systemShortcut:
        return model::refusal(conflict.combo, layout).value_or(QString());
    case Conflict::Kind::otherShortcut:
        return QStringLiteral("%1 is already assigned to \"%2\"")
            .arg(words(conflict.combo, layout), conflict.name);
    case Conflict::Kind::desktop:
        return QStringLiteral("%1 is already used by %2%3.")
            .arg(words(conflict.combo, layout),
                 conflict.name.isEmpty() ? QStringLiteral("another program") : conflict.name,
                 inBrackets(conflict.action));
    case Conflict::Kind::keyboardTaken:
        return state_.whyNoKeyboard;
    }
    Q_UNREACHABLE();
}

void KeyRecorderViewModel::setCurrentCombo(std::optional<KeyCombo> combo) {
    isComboPressed_ = false;
    State next = state_;
    next.currentCombo = combo;
    next.conflict.reset();
    next.warning.reset();
    become(std::move(next));
}

void KeyRecorderViewModel::startRecording() {
    if (state_.isRecording)
        return;
    State next = state_;
    next.conflict.reset();
    // Before the grab: a hotkey of ours would take its press even from a keyboard that is ours.
    suspendHotkeys();
    auto grab = ports_.keyboardCapture.capture(*this);
    if (!grab) {
        const Failure& failure = grab.failure();
        const Availability can = ports_.keyboardCapture.availability();
        if (failure.kind == Failure::Kind::refused)
            next.whyNoKeyboard =
                QStringLiteral("Another program holds the keyboard, so no keys can be recorded. "
                               "Close its menu or dialog and try again.");
        else
            next.whyNoKeyboard = can.reason.isEmpty() ? failure.detail : can.reason;
        next.conflict = Conflict{Conflict::Kind::keyboardTaken, {}, {}, {}};
        finish(std::move(next));
        return;
    }
    localMonitor_ = std::move(grab).value();
    next.isRecording = true;
    readDesktop();
    become(std::move(next));
}

void KeyRecorderViewModel::stopRecording() {
    if (state_.isRecording)
        finish(state_);
}

void KeyRecorderViewModel::captureLost() {
    stopRecording();
}

std::optional<QString> KeyRecorderViewModel::commandWarning(const KeyCombo& combo) const {
    return model::commandWarning(combo, ports_.keyboardLayout);
}

void KeyRecorderViewModel::keyCaptured(const CapturedKey& key) {
    if (!state_.isRecording || key.isRepeat)
        return;
    State next = state_;
    next.heldModifiers = modifierFlags(key.flags);
    switch (key.kind) {
    case CapturedKey::Kind::down:
        next.heldKey = key.keyCode;
        pressed({key.keyCode, next.heldModifiers}, std::move(next));
        return;
    case CapturedKey::Kind::up:
        if (next.heldKey == key.keyCode)
            next.heldKey.reset();
        break;
    case CapturedKey::Kind::modifiersChanged:
        break;
    }
    become(std::move(next));
}

void KeyRecorderViewModel::pressed(const KeyCombo& combo, State next) {
    if (combo.keyCode == model::escapeKeyCode) {
        finish(std::move(next));
        return;
    }
    if (auto conflict = conflictOf(combo)) {
        next.conflict = std::move(conflict);
        become(std::move(next));
        return;
    }
    next.currentCombo = combo;
    next.conflict.reset();
    next.warning = warningAbout(combo);
    isComboPressed_ = true;
    finish(std::move(next), &KeyRecorderViewModel::recorded);
}

std::optional<KeyRecorderViewModel::Conflict>
KeyRecorderViewModel::conflictOf(const KeyCombo& combo) const {
    using Kind = Conflict::Kind;
    if (model::refusal(combo, ports_.keyboardLayout))
        return Conflict{model::isSystemShortcut(combo) ? Kind::systemShortcut : Kind::noModifier,
                        combo,
                        {},
                        {}};
    if (shortcutListViewModel_) {
        for (const ShortcutItem& item : shortcutListViewModel_->shortcuts()) {
            if (item.id != editingItemId_ && (item.keyCombo == combo || item.hideKeyCombo == combo))
                return Conflict{Kind::otherShortcut, combo, item.name, {}};
        }
    }
    if (isRefusedByDesktop(combo)) {
        const DesktopShortcut* claim = desktopShortcut(combo);
        return Conflict{Kind::desktop, combo, claim ? claim->owner : QString(),
                        claim ? claim->action : QString()};
    }
    return std::nullopt;
}

bool KeyRecorderViewModel::isRefusedByDesktop(const KeyCombo& combo) const {
    // Where nothing can be registered a refusal says nothing about the combo.
    if (ports_.hotkeys.availability().state == Availability::State::unavailable)
        return false;
    const auto trial = ports_.hotkeys.registerHotkeys(
        {{trialIdentifier, combo.keyCode, combo.modifiers.carbonModifiers()}});
    return trial.front().status != 0;
}

const DesktopShortcut* KeyRecorderViewModel::desktopShortcut(const KeyCombo& combo) const {
    const auto found = std::ranges::find_if(desktop_.shortcuts, [&](const DesktopShortcut& held) {
        return held.keyCode == combo.keyCode &&
               held.carbonModifiers == combo.modifiers.carbonModifiers();
    });
    return found == desktop_.shortcuts.end() ? nullptr : &*found;
}

// One warning, the gravest first: what will not work at all, what somebody may lose, what habit
// will miss.
std::optional<KeyRecorderViewModel::Warning>
KeyRecorderViewModel::warningAbout(const KeyCombo& combo) const {
    if (auto warning = desktopWarning(combo))
        return warning;
    if (auto warning = hiddenWarning(combo))
        return warning;
    if (const auto text = commandWarning(combo))
        return Warning{Warning::Kind::commonCommand, *text, {}, {}, combo};
    return std::nullopt;
}

std::optional<KeyRecorderViewModel::Warning>
KeyRecorderViewModel::desktopWarning(const KeyCombo& combo) const {
    const DesktopShortcut* claim = desktopShortcut(combo);
    if (!claim)
        return std::nullopt;
    const QString name = words(combo, ports_.keyboardLayout);
    switch (claim->effect) {
    case DesktopShortcut::Effect::neverFires:
        return Warning{Warning::Kind::neverFires,
                       QStringLiteral("%1 belongs to %2%3: no press of it reaches any program, so "
                                      "this shortcut would never fire.")
                           .arg(name, claim->owner, inBrackets(claim->action)),
                       claim->owner, claim->action, combo};
    case DesktopShortcut::Effect::takesKey:
        return Warning{Warning::Kind::desktopUses,
                       QStringLiteral("%1 is in the settings of %2 too%3, which may act on it "
                                      "instead.")
                           .arg(name, claim->owner, inBrackets(claim->action)),
                       claim->owner, claim->action, combo};
    }
    Q_UNREACHABLE();
}

// A combo that the person chooses wins over a derived hide combo and over the global ones, without
// a word from whoever loses it.
std::optional<KeyRecorderViewModel::Warning>
KeyRecorderViewModel::hiddenWarning(const KeyCombo& combo) const {
    if (!shortcutListViewModel_)
        return std::nullopt;
    const auto plan =
        planHotkeys(shortcutListViewModel_->shortcuts(), shortcutListViewModel_->config());
    const auto loser = std::ranges::find_if(plan, [&](const PlannedHotkey& hotkey) {
        return hotkey.combo == combo && !(hotkey.item && hotkey.item->id == editingItemId_);
    });
    if (loser == plan.end())
        return std::nullopt;
    return Warning{Warning::Kind::hiddenByOther,
                   QStringLiteral("%1 %2 now and will no longer do so.")
                       .arg(words(combo, ports_.keyboardLayout), deed(*loser)),
                   loser->item ? loser->item->name : QString(), actionName(loser->action), combo};
}

void KeyRecorderViewModel::readDesktop() {
    ports_.desktopShortcuts.read(
        [self = QPointer<KeyRecorderViewModel>(this)](platform::DesktopShortcutReading reading) {
            if (!self)
                return;
            self->desktop_ = std::move(reading);
            State next = self->state_;
            if (next.conflict && next.conflict->kind == Conflict::Kind::desktop) {
                if (const DesktopShortcut* claim = self->desktopShortcut(next.conflict->combo)) {
                    next.conflict->name = claim->owner;
                    next.conflict->action = claim->action;
                }
            }
            if (self->isComboPressed_ && next.currentCombo) {
                if (auto warning = self->desktopWarning(*next.currentCombo))
                    next.warning = std::move(warning);
            }
            self->become(std::move(next));
        });
}

void KeyRecorderViewModel::suspendHotkeys() {
    if (!shortcutListViewModel_ || shortcutListViewModel_->hotkeysSuspended())
        return;
    hasSuspended_ = true;
    shortcutListViewModel_->setHotkeysSuspended(true);
    hotkeys_.unregisterAll();
    ports_.hotkeys.waitUntilReleased();
}

void KeyRecorderViewModel::resumeHotkeys() {
    if (std::exchange(hasSuspended_, false) && shortcutListViewModel_)
        shortcutListViewModel_->setHotkeysSuspended(false);
}

void KeyRecorderViewModel::become(State next) {
    const State before = std::exchange(state_, std::move(next));
    announce(before);
}

// The keyboard goes back first: a hotkey that is registered while it is ours would take the very
// press that ended the recording.
void KeyRecorderViewModel::finish(State next, Signal last) {
    next.isRecording = false;
    next.heldModifiers = {};
    next.heldKey.reset();
    const State before = std::exchange(state_, std::move(next));
    localMonitor_.reset();
    const QPointer<KeyRecorderViewModel> self(this);
    resumeHotkeys();
    if (self)
        announce(before, last);
}

void KeyRecorderViewModel::announce(const State& before, Signal last) {
    using Self = KeyRecorderViewModel;
    std::vector<Signal> changes;
    if (before.currentCombo != state_.currentCombo)
        changes.push_back(&Self::currentComboChanged);
    if (before.conflict != state_.conflict || before.whyNoKeyboard != state_.whyNoKeyboard)
        changes.push_back(&Self::conflictChanged);
    if (before.warning != state_.warning)
        changes.push_back(&Self::warningChanged);
    if (before.heldModifiers != state_.heldModifiers || before.heldKey != state_.heldKey)
        changes.push_back(&Self::heldChanged);
    if (before.isRecording != state_.isRecording)
        changes.push_back(&Self::recordingChanged);
    if (last)
        changes.push_back(last);
    // A screen may close, and take the recorder with it, on any of them.
    const QPointer<Self> self(this);
    for (const Signal change : changes) {
        if (self)
            Q_EMIT(this->*change)();
    }
}

} // namespace skipnest::hotkeys
