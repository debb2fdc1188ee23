// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Availability.h"

#include <QRect>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace skipnest::platform {

struct StatusMenuEntry {
    int id = 0; // handed back when it is chosen; 0 is a separator
    QString title;
    bool enabled = true;

    bool operator==(const StatusMenuEntry&) const = default;
};

class StatusItemEvents {
public:
    virtual ~StatusItemEvents() = default;
    virtual void statusItemClicked() = 0;
    virtual void statusMenuChosen(int id) = 0;
    // What was dropped on the icon, as URLs; not only files.
    virtual void dropped(const QStringList& urls) = 0;
};

// The icon in the menu bar or tray.
class StatusItem {
public:
    virtual ~StatusItem() = default;

    // Unavailable where the desktop has no place for icons; limited where clicks or drops do not
    // reach us. May change while the program runs: panels come and go.
    [[nodiscard]] virtual Availability availability() const = 0;

    // Puts the icon up, and again when a tray appears later. `events` must outlive the item.
    virtual void show(const QString& iconName, StatusItemEvents& events) = 0;
    virtual void setIcon(const QString& iconName) = 0;
    virtual void setToolTip(const QString& text) = 0;
    virtual void setMenu(const std::vector<StatusMenuEntry>& entries) = 0;
    // Where the icon is, in the coordinates of Screens; nothing where the tray does not tell.
    [[nodiscard]] virtual std::optional<QRect> geometry() const = 0;
};

} // namespace skipnest::platform
