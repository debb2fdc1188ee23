// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/HotkeyBackend.h"
#include "platform/KeyEvents.h"
#include "platform/ScriptRunner.h"
#include "platform/Workspace.h"
#include "platform/linux/SessionKind.h"
#include "platform/linux/browser/ExtensionTabs.h"

namespace skipnest::linuxdesktop {

// The ports of a session without an X server of its own: each says by availability() what it cannot
// do and what the person can do about it, and answers every request with a refusal. The layout of
// such a session is platform::UsKeyboardLayout: no port tells ours without a window.

// No combo is ever registered. Every request gets the status `notImplemented`, so that the log has
// a line for each shortcut that will not work.
class HeadlessHotkeys final : public platform::HotkeyBackend {
public:
    static constexpr std::int32_t notImplemented = -4; // unimpErr

    explicit HeadlessHotkeys(SessionKind session) : session_(session) {}

    [[nodiscard]] platform::Availability availability() const override;
    // Taken, and never told anything.
    [[nodiscard]] std::int32_t installHandler(platform::HotkeyEvents* events) override;
    [[nodiscard]] std::vector<platform::HotkeyRegistration>
    registerHotkeys(const std::vector<platform::HotkeyRequest>& requests) override;
    void waitUntilReleased() override {}
    [[nodiscard]] platform::KeyDeliveryHold holdKeyDelivery() override;

private:
    SessionKind session_;
};

class HeadlessKeyEvents final : public platform::KeyEvents {
public:
    explicit HeadlessKeyEvents(SessionKind session) : session_(session) {}

    [[nodiscard]] platform::Availability availability() const override;
    [[nodiscard]] platform::Result<platform::KeyTap>
    listen(platform::KeyEventListener& listener) override;
    [[nodiscard]] platform::Result<platform::KeyTap> intercept(platform::KeyInterceptor&) override {
        return platform::Failure{platform::Failure::Kind::unavailable,
                                 QStringLiteral("Keys cannot be taken over.")};
    }
    [[nodiscard]] platform::EventFlags modifiersDown() const override;
    platform::Outcome post(const platform::KeyStroke& stroke) override;

private:
    SessionKind session_;
};

// Answers every script about windows with errAEEventNotHandled, which is also what an application
// that knows no such command says. The extensions of browsers work as everywhere.
class HeadlessScripts final : public platform::ScriptRunner {
public:
    static constexpr int notHandled = -1708;

    HeadlessScripts(SessionKind session, ExtensionTabs& tabs) : session_(session), tabs_(tabs) {}

    [[nodiscard]] platform::Availability availability() const override;
    [[nodiscard]] QStringList furtherBrowsers() const override { return ExtensionTabs::browsers(); }
    platform::Outcome acceptBrowsers() override { return tabs_.listen(); }
    [[nodiscard]] platform::ScriptAnswer run(const platform::ScriptRequest& request,
                                             platform::Duration budget) override;

private:
    SessionKind session_;
    ExtensionTabs& tabs_;
};

// Nobody tells us which applications run, so there is no process to command.
class HeadlessApplications final : public platform::ApplicationControl {
public:
    [[nodiscard]] platform::ApplicationState state(platform::ProcessIdentifier pid) const override;
    platform::Outcome activate(platform::ProcessIdentifier pid,
                               platform::ActivationOption option) override;
    platform::Outcome hide(platform::ProcessIdentifier pid) override;
    platform::Outcome terminate(platform::ProcessIdentifier pid,
                                platform::Termination termination) override;
};

} // namespace skipnest::linuxdesktop
