// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Availability.h"
#include "platform/RunningApplication.h"

#include <QPointF>
#include <QSizeF>
#include <QString>

#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

namespace skipnest::platform {

// Something another program shows: the application itself, a window, a menu, a menu item. A plain
// number that the backend gives out; equal numbers are the same thing, also in a later answer. What
// has gone answers nothing any more.
struct AccessibilityElement {
    std::uint64_t id = 0; // 0 is none

    explicit operator bool() const { return id != 0; }
    bool operator==(const AccessibilityElement&) const = default;
};

using AccessibilityValue = std::variant<bool, QString, QPointF, QSizeF, AccessibilityElement,
                                        std::vector<AccessibilityElement>>;

// Status numbers of the accessibility interface; every request answers one of them.
struct AccessibilityStatus {
    static constexpr int success = 0;
    static constexpr int failure = -25200;
    static constexpr int invalidElement = -25202;
    static constexpr int cannotComplete = -25204;
    static constexpr int attributeUnsupported = -25205;
    static constexpr int actionUnsupported = -25206;
    static constexpr int apiDisabled = -25211;
};

// The user interface of other programs, by attributes ("AXTitle", "AXWindows", "AXSubrole", …) and
// actions ("AXRaise", "AXPress"), named as macOS names them. Answers come from what the backend
// knows already: a key press waits for them, so none costs a round trip to another program.
class Accessibility {
public:
    virtual ~Accessibility() = default;

    [[nodiscard]] virtual Availability availability() const = 0;
    // Whether the person allowed it. Without, every attribute is unreadable.
    [[nodiscard]] virtual bool isTrusted() const = 0;
    // The system's own question to the person, and its settings page.
    virtual void promptForTrust() = 0;

    [[nodiscard]] virtual AccessibilityElement application(ProcessIdentifier pid) = 0;
    // Nothing where it cannot be read. The id of a window as ScreenCapture has it is "AXWindowID",
    // a string.
    [[nodiscard]] virtual std::optional<AccessibilityValue>
    attribute(const AccessibilityElement& element, const QString& name) = 0;
    virtual int setAttribute(const AccessibilityElement& element, const QString& name,
                             const AccessibilityValue& value) = 0;
    virtual int performAction(const AccessibilityElement& element, const QString& name) = 0;
};

} // namespace skipnest::platform
