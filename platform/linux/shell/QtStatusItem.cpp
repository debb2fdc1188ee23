// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/shell/QtStatusItem.h"

#include "platform/linux/shell/MenuBarImages.h"

#include <QApplication>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QStyleHints>
#include <QSystemTrayIcon>
#include <QUrl>

namespace skipnest::linuxdesktop {
namespace {

using platform::Availability;

// Takes what is dropped on a tray window's icon, in the name of Qt's widget there.
class DropTaker final : public QObject {
public:
    explicit DropTaker(std::function<void(const QStringList&)> dropped)
        : dropped_(std::move(dropped)) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove: {
            auto* drag = static_cast<QDragMoveEvent*>(event);
            if (drag->mimeData()->hasUrls())
                drag->acceptProposedAction();
            return true;
        }
        case QEvent::Drop: {
            auto* drop = static_cast<QDropEvent*>(event);
            drop->acceptProposedAction();
            QStringList urls;
            for (const QUrl& url : drop->mimeData()->urls())
                urls.append(url.toString(QUrl::FullyEncoded));
            dropped_(urls);
            return true;
        }
        default:
            return QObject::eventFilter(watched, event);
        }
    }

private:
    std::function<void(const QStringList&)> dropped_;
};

// Menus take an ampersand for the mark of the next letter. On the bus an underscore is that mark;
// Qt turns the first ampersand of a title into one and passes on everything else as it is.
QString menuTitle(QString title, bool onBus) {
    if (!onBus)
        return title.replace(u'&', QStringLiteral("&&"));
    title.replace(u'_', QStringLiteral("__"));
    if (const auto first = title.indexOf(u'&'); first >= 0)
        title.insert(first, u'&');
    return title;
}

} // namespace

QtStatusItem::QtStatusItem(platform::Scheduler& scheduler, X11Display* display)
    : scheduler_(scheduler), watch_(display, [this] { trayChanged(); }) {}

QtStatusItem::~QtStatusItem() = default;

platform::Availability QtStatusItem::availability() const {
    const QString startAgain = QStringLiteral("Start Skipnest again to open its window.");
    const Tray tray = watch_.tray();
    if (tray == Tray::none || tray == Tray::undecided)
        return {Availability::State::unavailable,
                QStringLiteral("This desktop shows no status icons."),
                startAgain + QStringLiteral(" For an icon, add a status tray to the panel; GNOME "
                                            "needs its AppIndicator extension.")};
    if (icon_ && madeFor_ != tray)
        return {Availability::State::unavailable,
                QStringLiteral("The desktop has changed to another kind of status tray."),
                startAgain + QStringLiteral(" That moves the icon over, too.")};
    if (tray == Tray::notifier)
        return {Availability::State::limited,
                QStringLiteral("This desktop's status icons take no files that are dropped on "
                               "them."),
                QStringLiteral("Drop them on Skipnest's window instead.")};
    return {};
}

void QtStatusItem::show(const QString& iconName, platform::StatusItemEvents& events) {
    iconName_ = iconName;
    events_ = &events;
    putUp();
}

// Not at once: Qt has yet to see the event that brought the tray. It takes that for another tray,
// and puts a fresh icon into the one that has just begun to show the first.
void QtStatusItem::trayChanged() {
    scheduler_.post([this, alive = std::weak_ptr(alive_)] {
        if (alive.expired())
            return;
        putUp();
        acceptDrops();
    });
}

void QtStatusItem::putUp() {
    const Tray tray = watch_.tray();
    if (events_ == nullptr || (tray != Tray::notifier && tray != Tray::embedding))
        return;
    if (icon_) {
        setIcon(iconName_);
        return;
    }
    madeFor_ = tray;
    menu_ = std::make_unique<QMenu>();
    icon_ = std::make_unique<QSystemTrayIcon>();
    QObject::connect(icon_.get(), &QSystemTrayIcon::activated, icon_.get(),
                     [this](QSystemTrayIcon::ActivationReason reason) {
                         if (reason == QSystemTrayIcon::Trigger ||
                             reason == QSystemTrayIcon::MiddleClick)
                             clicked();
                     });
    setIcon(iconName_);
    icon_->setToolTip(toolTip_);
    fillMenu();
    icon_->setContextMenu(menu_.get());
    icon_->show();
    acceptDrops();
}

// A double click is one click: some trays tell of it as two, and the second would close what the
// first has opened.
void QtStatusItem::clicked() {
    const platform::Instant now = scheduler_.now();
    const std::chrono::milliseconds doubleClick(
        QGuiApplication::styleHints()->mouseDoubleClickInterval());
    const bool second = lastClick_ && now - *lastClick_ < doubleClick;
    lastClick_ = now;
    if (!second)
        events_->statusItemClicked();
}

void QtStatusItem::setIcon(const QString& iconName) {
    iconName_ = iconName;
    if (icon_)
        icon_->setIcon(menuBarImage(iconName, watch_.foreground().value_or(anyPanelColor())));
}

void QtStatusItem::setToolTip(const QString& text) {
    toolTip_ = text;
    if (icon_)
        icon_->setToolTip(text);
}

void QtStatusItem::setMenu(const std::vector<platform::StatusMenuEntry>& entries) {
    if (entries_ == entries)
        return;
    entries_ = entries;
    if (menu_)
        fillMenu();
}

void QtStatusItem::fillMenu() {
    menu_->clear();
    for (const platform::StatusMenuEntry& entry : entries_) {
        if (entry.id == 0) {
            menu_->addSeparator();
            continue;
        }
        QAction* action = menu_->addAction(menuTitle(entry.title, madeFor_ == Tray::notifier));
        action->setEnabled(entry.enabled);
        QObject::connect(action, &QAction::triggered, action,
                         [this, id = entry.id] { events_->statusMenuChosen(id); });
    }
}

void QtStatusItem::acceptDrops() {
    if (!icon_ || madeFor_ != Tray::embedding)
        return;
    if (!drops_)
        drops_ = std::make_unique<DropTaker>(
            [this](const QStringList& urls) { events_->dropped(urls); });
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (!widget->inherits("QSystemTrayIconSys"))
            continue;
        widget->setAcceptDrops(true);
        widget->removeEventFilter(drops_.get());
        widget->installEventFilter(drops_.get());
    }
}

std::optional<QRect> QtStatusItem::geometry() const {
    const QRect place = icon_ ? icon_->geometry() : QRect();
    return place.isEmpty() ? std::nullopt : std::optional(place);
}

} // namespace skipnest::linuxdesktop
