// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/HeadlessPorts.h"

namespace skipnest::linuxdesktop {

using platform::Availability;
using platform::Failure;
using platform::Outcome;

namespace {

Availability unavailable(SessionKind session, const QString& onWayland,
                         const QString& waylandRemedy) {
    if (session == SessionKind::none)
        return {Availability::State::unavailable,
                QStringLiteral("No X server or Wayland compositor answers."),
                QStringLiteral("Start Skipnest from inside a graphical session.")};
    return {Availability::State::unavailable, onWayland, waylandRemedy};
}

Failure failure(const Availability& availability) {
    return {Failure::Kind::unavailable, availability.reason};
}

Failure noProcessControl() {
    return {Failure::Kind::unavailable,
            QStringLiteral("This session does not tell which applications run.")};
}

} // namespace

Availability HeadlessHotkeys::availability() const {
    return unavailable(
        session_,
        QStringLiteral(
            "On Wayland only the compositor can bind keys, so no shortcut is registered."),
        QStringLiteral("Bind keys to \"skipnest jump NAME\" in the keyboard settings of your "
                       "desktop, or log in to an X11 session."));
}

std::int32_t HeadlessHotkeys::installHandler(platform::HotkeyEvents*) {
    return 0;
}

std::vector<platform::HotkeyRegistration>
HeadlessHotkeys::registerHotkeys(const std::vector<platform::HotkeyRequest>& requests) {
    std::vector<platform::HotkeyRegistration> answers(requests.size());
    for (platform::HotkeyRegistration& answer : answers)
        answer.status = notImplemented;
    return answers;
}

platform::KeyDeliveryHold HeadlessHotkeys::holdKeyDelivery() {
    return {};
}

Availability HeadlessKeyEvents::availability() const {
    return unavailable(
        session_,
        QStringLiteral("On Wayland no program can see or type keys outside its own windows."),
        QStringLiteral("Bind keys to Skipnest's commands in the keyboard settings of your desktop, "
                       "or log in to an X11 session."));
}

platform::Result<platform::KeyTap> HeadlessKeyEvents::listen(platform::KeyEventListener&) {
    return failure(availability());
}

platform::EventFlags HeadlessKeyEvents::modifiersDown() const {
    return {};
}

Outcome HeadlessKeyEvents::post(const platform::KeyStroke&) {
    return failure(availability());
}

Availability HeadlessScripts::availability() const {
    return unavailable(session_,
                       QStringLiteral("On Wayland no program can command another one's windows."),
                       QStringLiteral("Use the window keys of your desktop, or log in to an X11 "
                                      "session."));
}

platform::ScriptAnswer HeadlessScripts::run(const platform::ScriptRequest& request,
                                            platform::Duration budget) {
    return std::visit(
        [this, budget](const auto& meaning) -> platform::ScriptAnswer {
            if constexpr (std::is_same_v<decltype(meaning), const platform::CycleWindows&>)
                return platform::ScriptError{notHandled, availability().reason};
            else
                return tabs_.run(meaning, budget);
        },
        request.meaning);
}

platform::ApplicationState HeadlessApplications::state(platform::ProcessIdentifier) const {
    return {};
}

Outcome HeadlessApplications::activate(platform::ProcessIdentifier, platform::ActivationOption) {
    return noProcessControl();
}

Outcome HeadlessApplications::hide(platform::ProcessIdentifier) {
    return noProcessControl();
}

Outcome HeadlessApplications::terminate(platform::ProcessIdentifier, platform::Termination) {
    return noProcessControl();
}

} // namespace skipnest::linuxdesktop
