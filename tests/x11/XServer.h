// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>

#include <sys/types.h>

#include <memory>

namespace skipnest::tests {

// An Xvfb of one's own on a free display, without a window manager. It dies with this object, and
// with this process however that ends.
class XServer {
public:
    // Null where Xvfb is not installed or does not come up.
    [[nodiscard]] static std::unique_ptr<XServer> start();
    ~XServer();

    [[nodiscard]] const QByteArray& display() const { return display_; } // ":7"
    void stop();

private:
    XServer(pid_t process, QByteArray display);

    pid_t process_;
    QByteArray display_;
};

} // namespace skipnest::tests
