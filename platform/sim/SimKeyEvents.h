// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/KeyEvents.h"
#include "platform/Observers.h"
#include "platform/sim/Journal.h"

#include <QJsonArray>

#include <functional>
#include <optional>

namespace skipnest::sim {

// The names of modifiers in traces and calls: "control", "option", "shift", "command", "function",
// "capsLock", in that order.
[[nodiscard]] QJsonArray modifierNames(platform::EventFlags flags);
[[nodiscard]] std::optional<platform::EventFlags> modifierNamed(const QString& name);

// The keyboard of the simulated desktop beyond hotkeys. Events go to every listener before the call
// that makes them returns, as they do from a system's event tap.
class SimKeyEvents final : public platform::KeyEvents {
public:
    explicit SimKeyEvents(Journal& journal) : journal_(journal) {}

    void changeModifiers(const platform::ModifierEvent& event);
    void pressKey(platform::Instant seen);
    // Shows the press to whoever intercepts keys, as a system's tap does before its own hotkeys.
    platform::KeyInterceptor::Verdict intercepted(const platform::KeyPress& press);
    // What modifiersDown() answers without a modifier event, for a listener that missed it.
    void setModifiersDown(platform::EventFlags flags) { down_ = flags; }
    // The system switches the interceptor's tap off and it is switched on again.
    void interruptInterceptor(platform::KeyInterceptor::Disabled why);
    // The interceptor's tap is dead without a word: no key reaches it any more.
    void loseInterceptor() { interceptor_ = nullptr; }
    // From now on nobody may intercept, as where another program holds the keyboard.
    void refuseInterceptors() { refusesInterceptors_ = true; }
    [[nodiscard]] bool isIntercepted() const { return interceptor_ != nullptr; }
    // Taps and posting fail while not available.
    void setAvailability(const platform::Availability& availability);
    [[nodiscard]] bool isListenedTo() const { return !listeners_.empty(); }

    [[nodiscard]] platform::Availability availability() const override { return availability_; }
    [[nodiscard]] platform::Result<platform::KeyTap>
    listen(platform::KeyEventListener& listener) override;
    [[nodiscard]] platform::Result<platform::KeyTap>
    intercept(platform::KeyInterceptor& interceptor) override;
    [[nodiscard]] platform::EventFlags modifiersDown() const override { return down_; }
    platform::Outcome post(const platform::KeyStroke& stroke) override;

private:
    using Tell = std::function<void(platform::KeyEventListener&)>;

    [[nodiscard]] bool isAvailable() const;

    Journal& journal_;
    platform::Availability availability_;
    platform::EventFlags down_;
    platform::Observers<const Tell&> listeners_;
    platform::KeyInterceptor* interceptor_ = nullptr;
    bool refusesInterceptors_ = false;
};

} // namespace skipnest::sim
