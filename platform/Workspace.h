// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Availability.h"
#include "platform/Observers.h"
#include "platform/Result.h"
#include "platform/RunningApplication.h"

#include <QString>
#include <QUrl>

#include <functional>
#include <optional>
#include <vector>

namespace skipnest::platform {

// Applications and what opens with them. Answers come from what the backend already knows: the
// questions below cost no round trip to another process, because a key press waits for them.
class Workspace {
public:
    using OpenCompletion = std::function<void(const Outcome&)>;

    virtual ~Workspace() = default;

    [[nodiscard]] virtual Availability availability() const = 0;

    // The only judges of what an application is and what it is called. A path is one by its name
    // alone (".app" on macOS and in the simulation, ".desktop" on Linux), whether or not it exists.
    [[nodiscard]] virtual bool isApplication(const QString& path) const = 0;
    [[nodiscard]] virtual QString displayName(const QString& path) const = 0;
    // The identifier of the application at this path; empty where it has none.
    [[nodiscard]] virtual QString bundleIdentifier(const QString& path) const = 0;
    // The path of the application that opens this file or folder by default.
    [[nodiscard]] virtual std::optional<QString> defaultApplication(const QString& path) const = 0;

    [[nodiscard]] virtual std::vector<RunningApplication> runningApplications() const = 0;
    [[nodiscard]] virtual std::optional<RunningApplication> frontmostApplication() const = 0;

    // Starts the application, or brings its running instance to the front. The completion says
    // whether the system took the request, not whether a window arrived; it runs on the main
    // thread, at the earliest after this call has returned.
    virtual void openApplication(const QString& path, OpenCompletion completion) = 0;
    // Opens a file or folder with its default application.
    virtual void openFile(const QString& path, OpenCompletion completion) = 0;
    // Opens an address with the program that is set for its scheme: a page in the browser.
    virtual void openUrl(const QUrl& url, OpenCompletion completion) = 0;

    // The desktop's permission for the next open request to take the focus, as the program that
    // asks got it with the key press (Wayland: XDG_ACTIVATION_TOKEN). Empty for none. Desktops that
    // need no such permission ignore it.
    virtual void setNextActivationToken(const QString& token) = 0;

    // Told on the main thread after an application has come to the front.
    [[nodiscard]] virtual Observation
    observeActivations(std::function<void(const RunningApplication&)> activated) = 0;
};

// Commands to one running application, and its state now.
class ApplicationControl {
public:
    virtual ~ApplicationControl() = default;

    [[nodiscard]] virtual ApplicationState state(ProcessIdentifier pid) const = 0;
    // Brings it to the front. `ignoringOtherApps` does so without asking anybody's consent, which
    // on X11 means past a window manager that refuses.
    virtual Outcome activate(ProcessIdentifier pid, ActivationOption option) = 0;
    // Fails with `unavailable` where the desktop cannot hide windows (X11: no window manager, or
    // one without minimising).
    virtual Outcome hide(ProcessIdentifier pid) = 0;
    virtual Outcome terminate(ProcessIdentifier pid, Termination termination) = 0;
};

} // namespace skipnest::platform
