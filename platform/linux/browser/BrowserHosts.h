// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/BrowserExtensions.h"
#include "platform/Files.h"
#include "platform/Result.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace skipnest::linuxdesktop {

// The files by which browsers learn of the host program: one a browser, in the person's own
// folders. A browser is found by the folder that it keeps its profiles in or by its program.
class BrowserHosts {
public:
    struct Places {
        QString home;
        QString configHome;   // XDG_CONFIG_HOME
        QStringList programs; // PATH
        QString host;         // the host program
    };
    using Browser = platform::ExtensibleBrowser;

    BrowserHosts(platform::Files& files, Places places);

    // Connections are not known here.
    [[nodiscard]] std::vector<Browser> found() const;
    platform::Outcome install(const Browser& browser);
    // Done as well where there is nothing to remove.
    platform::Outcome remove(const Browser& browser);

private:
    struct Row;

    [[nodiscard]] QByteArray manifestFor(const Row& row) const;
    [[nodiscard]] Browser::Host stateOf(const QString& manifest, const Row& row) const;
    [[nodiscard]] bool hasProgram(const Row& row) const;

    static const std::vector<Row>& table();
    platform::Files& files_;
    const Places places_;
};

} // namespace skipnest::linuxdesktop
