// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/shell/TrayWatch.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

namespace skipnest::linuxdesktop {
namespace {

QString watcherName() {
    return QStringLiteral("org.kde.StatusNotifierWatcher");
}
QString watcherPath() {
    return QStringLiteral("/StatusNotifierWatcher");
}

constexpr char selectionName[] = "_NET_SYSTEM_TRAY_S0";

} // namespace

TrayWatch::TrayWatch(X11Display* display, std::function<void()> changed)
    : display_(display), changed_(std::move(changed)) {
    if (hasSessionBus())
        watchBus();
    else
        notifierHost_ = false;
    if (display_ != nullptr) {
        // A tray that starts announces itself to the root window.
        rootMask_ = display_->holdRootEventMask(XCB_EVENT_MASK_STRUCTURE_NOTIFY);
        events_ = display_->observeEvents(
            [this](const xcb_generic_event_t& event) { handleEvent(event); });
        findEmbedder();
    }
    tray_ = found();
}

TrayWatch::~TrayWatch() = default;

void TrayWatch::watchBus() {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        notifierHost_ = false;
        return;
    }
    watcherService_ = std::make_unique<QDBusServiceWatcher>(
        watcherName(), bus, QDBusServiceWatcher::WatchForOwnerChange);
    QObject::connect(watcherService_.get(), &QDBusServiceWatcher::serviceOwnerChanged,
                     watcherService_.get(), [this] { askWatcher(); });
    const auto onSignal = [&](const QString& member) {
        return std::make_unique<BusSignal>(
            bus, BusSignal::Source{watcherName(), watcherPath(), watcherName(), member},
            [this](const QDBusMessage&) { askWatcher(); });
    };
    hostRegistered_ = onSignal(QStringLiteral("StatusNotifierHostRegistered"));
    hostUnregistered_ = onSignal(QStringLiteral("StatusNotifierHostUnregistered"));
    askWatcher();
}

void TrayWatch::askWatcher() {
    QDBusMessage question = QDBusMessage::createMethodCall(
        watcherName(), watcherPath(), QStringLiteral("org.freedesktop.DBus.Properties"),
        QStringLiteral("Get"));
    question << watcherName() << QStringLiteral("IsStatusNotifierHostRegistered");
    // Where nobody shows icons, nothing is started for the sake of the question.
    question.setAutoStartService(false);
    auto* answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question));
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer,
                     [this, answer, number = ++question_, alive = std::weak_ptr(alive_)] {
                         answer->deleteLater();
                         if (alive.expired() || number != question_)
                             return;
                         const QDBusPendingReply<QDBusVariant> reply = *answer;
                         notifierHost_ = reply.isValid() && reply.value().variant().toBool();
                         update();
                     });
}

void TrayWatch::handleEvent(const xcb_generic_event_t& event) {
    const int type = event.response_type & 0x7f;
    if (type == XCB_CLIENT_MESSAGE) {
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
        if (message.type == display_->atom("MANAGER") &&
            message.data.data32[1] == display_->atom(selectionName)) {
            findEmbedder();
            update();
        }
    } else if (type == XCB_DESTROY_NOTIFY && embedder_ != XCB_WINDOW_NONE &&
               reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window == embedder_) {
        // Another tray may have taken the selection over already.
        findEmbedder();
        update();
    }
}

void TrayWatch::findEmbedder() {
    const XcbPtr<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        display_->connection(),
        xcb_get_selection_owner(display_->connection(), display_->atom(selectionName)), nullptr));
    embedder_ = reply ? reply->owner : xcb_window_t{XCB_WINDOW_NONE};
    if (embedder_ != XCB_WINDOW_NONE)
        display_->addEventMask(embedder_, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
}

std::optional<QColor> TrayWatch::foreground() const {
    if (tray_ != Tray::embedding)
        return std::nullopt;
    // Red, green and blue of the foreground come first; further colours follow.
    const XcbPtr<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        display_->connection(),
        xcb_get_property(display_->connection(), 0, embedder_,
                         display_->atom("_NET_SYSTEM_TRAY_COLORS"), XCB_ATOM_CARDINAL, 0, 3),
        nullptr));
    if (!reply || reply->format != 32 || reply->value_len < 3)
        return std::nullopt;
    const auto* colour = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    const auto channel = [&](int i) { return static_cast<int>(colour[i] >> 8 & 0xff); };
    return QColor(channel(0), channel(1), channel(2));
}

TrayWatch::Tray TrayWatch::found() const {
    if (!notifierHost_)
        return Tray::undecided;
    if (*notifierHost_)
        return Tray::notifier;
    return embedder_ != XCB_WINDOW_NONE ? Tray::embedding : Tray::none;
}

void TrayWatch::update() {
    if (std::exchange(tray_, found()) != tray_)
        changed_();
}

} // namespace skipnest::linuxdesktop
