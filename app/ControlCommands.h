// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "app/AppDelegate.h"
#include "app/ControlSocket.h"
#include "platform/Backend.h"

#include <QJsonObject>

#include <functional>

namespace skipnest::app {

// The verbs of the control socket, carried out on the running agent. Fields of a request have the
// names of the command line's arguments; what is missing or of the wrong type is refused.
class ControlCommands {
public:
    struct Requests {
        std::function<void()> quit;     // end the program once the answer is out
        std::function<void()> handOver; // let go of keys, socket and lock for the next instance
    };

    ControlCommands(AppDelegate& agent, const platform::Backend& backend, Requests requests);

    void handle(const QJsonObject& request, const ControlSocket::Reply& reply);

private:
    void jump(const QJsonObject& request, const ControlSocket::Reply& reply);
    ControlReply hide(const QJsonObject& request);
    ControlReply popover(const QJsonObject& request);
    ControlReply switcher(const QJsonObject& request);
    ControlReply restore(const QJsonObject& request);
    ControlReply cycle(platform::CycleDirection direction);
    [[nodiscard]] ControlReply status() const;

    AppDelegate& agent_;
    const platform::Backend& backend_;
    Requests requests_;
};

} // namespace skipnest::app
