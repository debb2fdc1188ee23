// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QProcessEnvironment>
#include <QString>

#include <functional>

namespace skipnest::linuxdesktop {

// Where the program runs. `wayland` also where an XWayland display is offered beside the
// compositor: grabs there only see the keys of X programs, so hotkeys would work in some windows
// and not in others.
enum class SessionKind { x11, wayland, none };

// What the environment alone cannot tell. The real ones try: an address in the environment of a
// terminal multiplexer or of a user service may be that of a session long gone.
struct SessionProbes {
    std::function<bool(const QString& display)> x11Answers;
    std::function<bool(const QString& socketPath)> waylandAnswers;
    std::function<bool()> waylandPluginInstalled; // Qt's, a package of its own

    [[nodiscard]] static SessionProbes real();
};

struct Session {
    SessionKind kind = SessionKind::none;
    // Qt's platform plugin, unless the person has set QT_QPA_PLATFORM: without one that works Qt
    // ends the program. To be handed over as the argument "-platform", not by the environment,
    // which every program that is opened inherits: it would draw its windows nowhere.
    QByteArray qtPlatform;

    bool operator==(const Session&) const = default;
};

// To be called before QGuiApplication exists.
[[nodiscard]] Session findSession(const QProcessEnvironment& environment,
                                  const SessionProbes& probes = SessionProbes::real());

// The compositor's socket as libwayland finds it: WAYLAND_DISPLAY (a name in XDG_RUNTIME_DIR or an
// absolute path), else "wayland-0". Empty where it would find none.
[[nodiscard]] QString waylandSocketPath(const QProcessEnvironment& environment);

} // namespace skipnest::linuxdesktop
