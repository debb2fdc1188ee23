// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Scheduler.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>

namespace skipnest::linuxdesktop {

// Asks a Wayland compositor for activation tokens (xdg_activation_v1): what a program started by us
// shows to come to the front. Each request has its own short connection, so that nothing is held
// while idle and a restarted compositor is no special case.
//
// The tokens carry no input serial, because no window of ours had the key press. wlroots
// compositors take them all the same; GNOME and KDE may answer such a token by marking the window
// as demanding attention. There, the token that the compositor gave to `skipnest jump` counts.
class WaylandActivation {
public:
    using TokenReady = std::function<void(const QString& token)>;

    WaylandActivation(QString socketPath, platform::Scheduler& scheduler);
    ~WaylandActivation();

    // Calls back once on the main thread, after this call has returned and within 100 ms: with an
    // empty token where the compositor has no such protocol, is gone or does not answer. Dropped
    // together with this object.
    void requestToken(const QString& applicationId, TokenReady ready);

private:
    struct Request;
    void finish(std::uint64_t id, const QString& token);

    QString socketPath_;
    platform::Scheduler& scheduler_;
    std::uint64_t lastId_ = 0;
    std::map<std::uint64_t, std::shared_ptr<Request>> requests_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::linuxdesktop
