// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Availability.h"
#include "platform/EventFlags.h"
#include "platform/Owned.h"
#include "platform/Result.h"
#include "platform/Scheduler.h"

#include <QString>

#include <cstdint>

namespace skipnest::platform {

// A modifier key went down or up. `flags` are the modifiers held after the event.
struct ModifierEvent {
    Instant time; // when the system saw it, so that a loaded machine changes no gesture
    std::uint16_t keyCode = 0;
    EventFlags flags;
};

// What a listening tap tells. Which other key it was is never told: a gesture only needs to know
// that there was one.
class KeyEventListener {
public:
    virtual ~KeyEventListener() = default;
    virtual void modifiersChanged(const ModifierEvent& event) = 0;
    virtual void otherKeyPressed(Instant time) = 0;
};

// A key as a tap that may take it away sees it.
struct KeyPress {
    std::uint16_t keyCode = 0; // kVK_* numbering
    EventFlags flags;          // modifiers held
    QString text;              // what it types; empty for keys that type nothing
    bool isRepeat = false;
    Instant time;
};

// Told of every key-down before anyone else. What it passes goes on as if nobody had looked: to
// our own hotkeys, to those of the desktop, to the application in front.
class KeyInterceptor {
public:
    enum class Verdict { consumed, passed };
    enum class Disabled { timeout, userInput };

    virtual ~KeyInterceptor() = default;
    virtual Verdict keyPressed(const KeyPress& press) = 0;
    // The system switched the tap off for a moment; it is on again.
    virtual void tapWasDisabled(Disabled why) = 0;
};

struct KeyStroke {
    std::uint16_t keyCode = 0;
    EventFlags flags;
};

using KeyTap = Owned<struct KeyTapTag>;

// Keyboard events beyond hotkeys: listening without taking anything away, the modifiers held now,
// and typing into the application in front.
class KeyEvents {
public:
    virtual ~KeyEvents() = default;

    [[nodiscard]] virtual Availability availability() const = 0;

    // Tells `listener` of every key event on the desktop, our own grabs included, until the tap is
    // dropped. While nobody listens the system sends nothing and no thread wakes.
    [[nodiscard]] virtual Result<KeyTap> listen(KeyEventListener& listener) = 0;

    // Shows `interceptor` every key-down until the tap is dropped. Fails with `refused` where
    // another program holds the keyboard. One at a time; `interceptor` must outlive the tap.
    [[nodiscard]] virtual Result<KeyTap> intercept(KeyInterceptor& interceptor) = 0;

    // The modifiers that are physically down now, asked of the system.
    [[nodiscard]] virtual EventFlags modifiersDown() const = 0;

    // Presses and releases one key with the given modifiers in the application in front.
    virtual Outcome post(const KeyStroke& stroke) = 0;
};

} // namespace skipnest::platform
