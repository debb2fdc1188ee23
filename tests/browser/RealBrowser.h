// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/browser/Marionette.h"
#include "tests/e2e/DesktopSession.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace skipnest::browser {

// A browser of this machine with our extension loaded, on a private desktop. The file that tells it
// of the host must have been written, and for its windows to come to front nothing else is needed.
class RealBrowser {
public:
    enum class Kind { chromium, firefox };
    // Its program; empty where it is not installed.
    [[nodiscard]] static QString program(Kind kind);
    [[nodiscard]] static QString identifier(Kind kind);
    [[nodiscard]] static std::unique_ptr<RealBrowser> make(Kind kind, e2e::DesktopSession& session);

    virtual ~RealBrowser() = default;

    // Starts it where it does not run, and opens one window a list.
    virtual bool open(const std::vector<QStringList>& windows) = 0;
    [[nodiscard]] e2e::ChildProcess& process() { return process_; }

protected:
    explicit RealBrowser(e2e::DesktopSession& session) : session_(session) {}

    e2e::DesktopSession& session_;
    e2e::ChildProcess process_;
};

} // namespace skipnest::browser
