// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Scheduler.h"
#include "platform/StatusItem.h"
#include "platform/linux/shell/TrayWatch.h"

#include <optional>

class QMenu;
class QObject;
class QSystemTrayIcon;

namespace skipnest::linuxdesktop {

// The icon in whatever tray the desktop has. Needs a QApplication.
//
// Qt decides at the first icon of a process whether icons go to the session bus or into a tray
// window, and stays with it. So the icon is made when a tray is there, not before; from then on Qt
// follows that kind of tray when it restarts.
class QtStatusItem final : public platform::StatusItem {
public:
    // `display` is null outside X11.
    QtStatusItem(platform::Scheduler& scheduler, X11Display* display);
    ~QtStatusItem() override;
    QtStatusItem(const QtStatusItem&) = delete;
    QtStatusItem& operator=(const QtStatusItem&) = delete;

    [[nodiscard]] platform::Availability availability() const override;
    void show(const QString& iconName, platform::StatusItemEvents& events) override;
    void setIcon(const QString& iconName) override;
    void setToolTip(const QString& text) override;
    void setMenu(const std::vector<platform::StatusMenuEntry>& entries) override;
    [[nodiscard]] std::optional<QRect> geometry() const override;

private:
    using Tray = TrayWatch::Tray;

    void trayChanged();
    void putUp();
    void clicked();
    void fillMenu();
    void acceptDrops();

    platform::Scheduler& scheduler_;
    platform::StatusItemEvents* events_ = nullptr;
    QString iconName_;
    QString toolTip_;
    std::vector<platform::StatusMenuEntry> entries_;
    std::optional<platform::Instant> lastClick_;
    Tray madeFor_ = Tray::none; // the kind of tray that the icon below was made for
    std::unique_ptr<QMenu> menu_;
    std::unique_ptr<QSystemTrayIcon> icon_;
    std::unique_ptr<QObject> drops_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    TrayWatch watch_;
};

} // namespace skipnest::linuxdesktop
