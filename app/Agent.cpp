// SPDX-License-Identifier: Apache-2.0
#include "app/Agent.h"

#include "platform/Diagnostics.h"
#include "platform/Files.h"
#include "platform/HotkeyBackend.h"
#include "platform/ScriptRunner.h"

#include <QStringBuilder>

#include <utility>

namespace skipnest::app {

using platform::Outcome;

Agent::Agent(const platform::Backend& backend, Hooks hooks)
    : backend_(backend), hooks_(std::move(hooks)), takeover_(backend.ports()) {}

Agent::~Agent() = default;

void Agent::start() {
    const platform::Ports& ports = backend_.ports();
    for (const QString& folder :
         {ports.app.supportFolder, ports.app.logFolder, ports.app.runtimeFolder})
        (void)ports.files.createFolder(folder);
    takeover_.begin([this](platform::Result<InstanceTakeover::Taken> taken) {
        if (taken)
            return launch(std::move(taken).value());
        backend_.ports().diagnostics.print(u"[Skipnest] Cannot start: " % taken.failure().detail);
        hooks_.quit(1);
    });
}

void Agent::launch(InstanceTakeover::Taken taken) {
    instance_ = std::move(taken.agent);
    start_ = std::move(taken.start);
    heldKeys_ = std::move(taken.keys);
    const auto quit = [this] { backend_.ports().scheduler.post([this] { hooks_.quit(0); }); };
    delegate_ = std::make_unique<AppDelegate>(
        backend_.ports(),
        AppDelegate::Options{.setup = AppDelegate::Options::Setup::check, .quit = quit});
    if (hooks_.created)
        hooks_.created(*delegate_);
    delegate_->launch({
        .hotkeysRegistered =
            [this, quit] {
                // The keys that were held back find their grabs from here on. Building the panels
                // takes longer than keys may wait.
                heldKeys_.reset();
                listen(quit);
                start_.reset();
            },
        .finished = [this] { hooks_.launched(*delegate_); },
    });
    // An alert may be waiting for an answer; neither the keys nor the next start wait with it.
    heldKeys_.reset();
    start_.reset();
}

void Agent::listen(const std::function<void()>& quit) {
    const platform::Ports& ports = backend_.ports();
    commands_ = std::make_unique<ControlCommands>(
        *delegate_, backend_,
        ControlCommands::Requests{.quit = quit, .handOver = [this] { handOver(); }});
    socket_ = std::make_unique<ControlSocket>(
        ports.peers, ports.scheduler,
        [this](const QJsonObject& request, const ControlSocket::Reply& reply) {
            commands_->handle(request, reply);
        });
    if (const Outcome listening = socket_->listen(controlSocketPath(ports.app.runtimeFolder));
        !listening)
        ports.diagnostics.print(u"[Skipnest] The command line cannot reach this agent: " %
                                listening.failure().detail);
    if (const Outcome accepting = ports.scripts.acceptBrowsers(); !accepting)
        ports.diagnostics.print(u"[Skipnest] Browsers cannot reach this agent: " %
                                accepting.failure().detail);
}

void Agent::handOver() {
    delegate_->hotkeys().unregisterAll();
    backend_.ports().hotkeys.waitUntilReleased();
    socket_->close();
    instance_.reset();
    // A last round of the event loop sends the answer.
    backend_.ports().scheduler.post([this] { hooks_.quit(0); });
}

} // namespace skipnest::app
