// SPDX-License-Identifier: Apache-2.0
#include "app/InstanceTakeover.h"

#include "app/ControlSocket.h"
#include "platform/Diagnostics.h"

#include <QLocalSocket>

#include <utility>

namespace skipnest::app {

using platform::Failure;
using platform::Result;
using platform::Termination;

namespace {

using namespace std::chrono_literals;

// Key delivery is held back meanwhile, so this is short; a healthy agent answers within 5 ms.
constexpr int handOverMilliseconds = 300;
constexpr platform::Duration forceAfter = 2s;
constexpr platform::Duration giveUpAfter = 5s;
constexpr platform::Duration retryEvery = 25ms;

} // namespace

void InstanceTakeover::begin(Completion completion) {
    completion_ = std::move(completion);
    Result<platform::InstanceToken> start = ports_.instances.enterStart();
    if (!start)
        return completion_(start.failure());
    taken_.start = std::move(start).value();
    if (tryAcquire())
        return finish();
    taken_.keys = ports_.hotkeys.holdKeyDelivery();
    if (askToHandOver() && tryAcquire())
        return finish();
    taken_.keys.reset();
    ports_.diagnostics.log(QStringLiteral("instance: the running one does not answer, ending it"));
    (void)ports_.instances.endHolder(Termination::polite);
    endingSince_ = ports_.scheduler.now();
    retryTimer_ =
        ports_.scheduler.every(retryEvery, "instance take-over", [this] { endHolderAndRetry(); });
}

bool InstanceTakeover::tryAcquire() {
    Result<platform::InstanceToken> token = ports_.instances.acquire();
    if (!token)
        return false;
    taken_.agent = std::move(token).value();
    return true;
}

bool InstanceTakeover::askToHandOver() {
    QLocalSocket socket;
    socket.connectToServer(controlSocketPath(ports_.app.runtimeFolder));
    if (!socket.waitForConnected(handOverMilliseconds))
        return false;
    socket.write("{\"verb\":\"replace\"}\n");
    while (!socket.canReadLine()) {
        if (!socket.waitForReadyRead(handOverMilliseconds))
            return false;
    }
    return socket.readLine().contains("\"ok\":true");
}

void InstanceTakeover::endHolderAndRetry() {
    if (tryAcquire())
        return finish();
    const platform::Duration waited = ports_.scheduler.now() - endingSince_;
    if (waited >= forceAfter && !std::exchange(forced_, true))
        (void)ports_.instances.endHolder(Termination::forced);
    if (waited < giveUpAfter)
        return;
    retryTimer_.reset();
    completion_(Failure{Failure::Kind::refused,
                        QStringLiteral("another instance runs and cannot be ended")});
}

void InstanceTakeover::finish() {
    // Keeps the callback alive while this very timer's task runs.
    const platform::Timer running = std::move(retryTimer_);
    completion_(std::move(taken_));
}

} // namespace skipnest::app
