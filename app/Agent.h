// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "app/AppDelegate.h"
#include "app/ControlCommands.h"
#include "app/ControlSocket.h"
#include "app/InstanceTakeover.h"
#include "platform/Backend.h"

#include <functional>
#include <memory>

namespace skipnest::app {

// The agent as a process: the only one of its user, reachable through the control socket. What it
// does as a program is AppDelegate's.
class Agent {
public:
    struct Hooks {
        std::function<void(int status)> quit; // ends the event loop
        // Made and not launched yet: panels get hold of what they show.
        std::function<void(AppDelegate&)> created;
        // The agent has bound its keys, listens, and has its status item and panels.
        std::function<void(AppDelegate&)> launched;
    };

    Agent(const platform::Backend& backend, Hooks hooks);
    ~Agent();

    // Takes over from a running agent, binds the keys and listens. Problems that leave nothing to
    // run end the program with status 1 and a line on standard output.
    void start();

private:
    void launch(InstanceTakeover::Taken taken);
    void listen(const std::function<void()>& quit);
    void handOver();

    const platform::Backend& backend_;
    Hooks hooks_;
    InstanceTakeover takeover_;
    platform::InstanceToken instance_;
    platform::InstanceToken start_;
    platform::KeyDeliveryHold heldKeys_;
    std::unique_ptr<AppDelegate> delegate_;
    std::unique_ptr<ControlCommands> commands_;
    std::unique_ptr<ControlSocket> socket_;
};

} // namespace skipnest::app
