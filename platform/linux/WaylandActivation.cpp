// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/WaylandActivation.h"

#include <QFile>
#include <QSocketNotifier>

#include <cstring>

#include <wayland-client.h>
#include <xdg-activation-v1-client-protocol.h>

namespace skipnest::linuxdesktop {
namespace {

constexpr platform::Duration patience = std::chrono::milliseconds(100);

template <auto destroy> struct Destroy {
    template <typename Proxy> void operator()(Proxy* proxy) const { destroy(proxy); }
};

} // namespace

// Members are destroyed in reverse order: the proxies before the connection they live on.
struct WaylandActivation::Request {
    std::function<void(const QString& token)> finished;
    TokenReady ready;
    QByteArray applicationId;
    platform::Timer timeout;
    std::unique_ptr<wl_display, Destroy<wl_display_disconnect>> display;
    std::unique_ptr<QSocketNotifier> readable;
    std::unique_ptr<wl_registry, Destroy<wl_registry_destroy>> registry;
    std::unique_ptr<wl_callback, Destroy<wl_callback_destroy>> globalsListed;
    std::unique_ptr<xdg_activation_v1, Destroy<xdg_activation_v1_destroy>> activation;
    std::unique_ptr<xdg_activation_token_v1, Destroy<xdg_activation_token_v1_destroy>> token;

    void begin();
    void read();

    static void globalFound(void* data, wl_registry* registry, std::uint32_t name,
                            const char* interface, std::uint32_t version);
    static void globalGone(void*, wl_registry*, std::uint32_t) {}
    static void allGlobalsFound(void* data, wl_callback*, std::uint32_t);
    static void tokenDone(void* data, xdg_activation_token_v1*, const char* token);
};

void WaylandActivation::Request::begin() {
    static constexpr wl_registry_listener registryListener{globalFound, globalGone};
    static constexpr wl_callback_listener listedListener{allGlobalsFound};
    registry.reset(wl_display_get_registry(display.get()));
    wl_registry_add_listener(registry.get(), &registryListener, this);
    globalsListed.reset(wl_display_sync(display.get()));
    wl_callback_add_listener(globalsListed.get(), &listedListener, this);
    readable =
        std::make_unique<QSocketNotifier>(wl_display_get_fd(display.get()), QSocketNotifier::Read);
    QObject::connect(readable.get(), &QSocketNotifier::activated, readable.get(),
                     [this] { read(); });
    if (wl_display_flush(display.get()) < 0)
        finished({});
}

void WaylandActivation::Request::read() {
    // Does not wait: there is something to read.
    if (wl_display_dispatch(display.get()) < 0 || wl_display_flush(display.get()) < 0)
        finished({});
}

void WaylandActivation::Request::globalFound(void* data, wl_registry* registry, std::uint32_t name,
                                             const char* interface, std::uint32_t) {
    static constexpr xdg_activation_token_v1_listener tokenListener{tokenDone};
    auto* self = static_cast<Request*>(data);
    if (std::strcmp(interface, xdg_activation_v1_interface.name) != 0 || self->activation)
        return;
    self->activation.reset(static_cast<xdg_activation_v1*>(
        wl_registry_bind(registry, name, &xdg_activation_v1_interface, 1)));
    self->token.reset(xdg_activation_v1_get_activation_token(self->activation.get()));
    xdg_activation_token_v1_add_listener(self->token.get(), &tokenListener, self);
    xdg_activation_token_v1_set_app_id(self->token.get(), self->applicationId.constData());
    xdg_activation_token_v1_commit(self->token.get());
}

void WaylandActivation::Request::allGlobalsFound(void* data, wl_callback*, std::uint32_t) {
    auto* self = static_cast<Request*>(data);
    if (!self->activation)
        self->finished({});
}

void WaylandActivation::Request::tokenDone(void* data, xdg_activation_token_v1*,
                                           const char* token) {
    static_cast<Request*>(data)->finished(QString::fromUtf8(token));
}

WaylandActivation::WaylandActivation(QString socketPath, platform::Scheduler& scheduler)
    : socketPath_(std::move(socketPath)), scheduler_(scheduler) {}

WaylandActivation::~WaylandActivation() = default;

void WaylandActivation::requestToken(const QString& applicationId, TokenReady ready) {
    const std::uint64_t id = ++lastId_;
    auto request = std::make_shared<Request>();
    request->finished = [this, id](const QString& token) { finish(id, token); };
    request->ready = std::move(ready);
    request->applicationId = applicationId.toUtf8();
    requests_.emplace(id, request);
    if (!socketPath_.isEmpty())
        request->display.reset(wl_display_connect(QFile::encodeName(socketPath_).constData()));
    if (!request->display)
        return finish(id, {});
    request->timeout =
        scheduler_.after(patience, "activation token", [this, id] { finish(id, {}); });
    request->begin();
}

// The request ends with the posted task, never inside one of its own callbacks.
void WaylandActivation::finish(std::uint64_t id, const QString& token) {
    auto node = requests_.extract(id);
    if (node.empty())
        return;
    std::shared_ptr<Request> request = std::move(node.mapped());
    if (request->readable)
        request->readable->setEnabled(false);
    scheduler_.post([alive = std::weak_ptr<bool>(alive_), request = std::move(request), token] {
        if (!alive.expired())
            request->ready(token);
    });
}

} // namespace skipnest::linuxdesktop
