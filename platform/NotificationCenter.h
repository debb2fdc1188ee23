// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Observers.h"

#include <QString>

#include <map>

namespace skipnest::platform {

// Notifications inside the process, for parts that must not know each other.
class NotificationCenter {
public:
    // "Skipnest.toggleMainPopover", "Skipnest.closePopover", "Skipnest.menuBarIconChanged".
    static QString toggleMainPopover() { return QStringLiteral("Skipnest.toggleMainPopover"); }
    static QString closePopover() { return QStringLiteral("Skipnest.closePopover"); }
    static QString menuBarIconChanged() { return QStringLiteral("Skipnest.menuBarIconChanged"); }

    [[nodiscard]] Observation observe(const QString& name, std::function<void()> told) {
        return observers_[name].add(std::move(told));
    }
    void post(const QString& name) const {
        if (const auto found = observers_.find(name); found != observers_.end())
            found->second.notify();
    }

private:
    std::map<QString, Observers<>> observers_;
};

} // namespace skipnest::platform
