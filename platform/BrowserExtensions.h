// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Availability.h"
#include "platform/Observers.h"
#include "platform/Result.h"

#include <QString>

#include <functional>
#include <vector>

namespace skipnest::platform {

// A browser of this person that tells of its tabs only through our extension.
struct ExtensibleBrowser {
    // Snap and Flatpak browsers live in a sandbox that starts no program from outside of it.
    enum class Packaging { native, snap, flatpak };
    // The file by which the browser learns of the host, the program that its extension talks to.
    enum class Host {
        installed,
        missing,
        outdated,    // it names another program, or other extensions
        unreachable, // sandboxed
    };

    QString name;
    QString identifier; // bundle identifier
    Packaging packaging = Packaging::native;
    Host host = Host::missing;
    QString manifest;             // the path of that file; empty where unreachable
    QString extensionsPage;       // the browser's own address for its extensions
    bool keepsSignedOnly = false; // an unsigned extension stays until the browser ends
    bool isConnected = false;     // its extension has reached the running agent

    bool operator==(const ExtensibleBrowser&) const = default;
};

// The way to the tabs of browsers that have to be met by an extension of ours.
class BrowserExtensions {
public:
    virtual ~BrowserExtensions() = default;

    // Whether this installation has what browsers need. Also available where no browser needs
    // anything.
    [[nodiscard]] virtual Availability availability() const = 0;
    // Those found on this machine, one row a packaging; empty where browsers are asked by the
    // system's own means.
    [[nodiscard]] virtual std::vector<ExtensibleBrowser> browsers() const = 0;
    // What a person loads into the browser; empty where it is missing.
    [[nodiscard]] virtual QString folder() const = 0;
    // Tells the browser of the host, or takes that back; both done already is done as well.
    virtual Outcome install(const ExtensibleBrowser& browser) = 0;
    virtual Outcome remove(const ExtensibleBrowser& browser) = 0;
    // Told when an extension has connected or gone. In the agent's process only.
    [[nodiscard]] virtual Observation observeConnections(std::function<void()> changed) = 0;
};

// What is in the way of this browser's tabs, and what to do about it, as `availability()` of a port
// would say it.
[[nodiscard]] Availability tabsAvailability(const ExtensibleBrowser& browser,
                                            const QString& folder);
// The browser's name, with its packaging where that is another than the system's own.
[[nodiscard]] QString titleOf(const ExtensibleBrowser& browser);

} // namespace skipnest::platform
