// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Executor.h"
#include "platform/Result.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <cstdint>
#include <functional>
#include <optional>

namespace skipnest::linuxdesktop {

struct LaunchRequest {
    QString entryPath;    // absolute path of a .desktop file
    QStringList files;    // absolute paths to open with it
    QByteArray startupId; // DESKTOP_STARTUP_ID and XDG_ACTIVATION_TOKEN of the new process
    QUrl url = {};        // opened after the files, where it is not empty
};

// The process that was started; 0 where the application was asked over D-Bus to start itself.
struct Launched {
    std::int64_t pid = 0;
};

// Starts applications from their desktop entries. The new process has a session of its own and no
// file of ours: it outlives this program and does not write into its output.
class ApplicationLauncher {
public:
    using Completion = std::function<void(const platform::Result<Launched>&)>;

    explicit ApplicationLauncher(platform::Executor& executor) : executor_(executor) {}

    // Works off the main thread: the bus or a slow disk may take its time. The completion runs on
    // the main thread later.
    void launch(const LaunchRequest& request, Completion completion);

private:
    platform::Executor& executor_;
};

// The desktop entry that opens this file or folder by default, found by its name, and by its
// content where the name tells nothing.
[[nodiscard]] std::optional<QString> defaultApplicationFor(const QString& path);
// The desktop entry that opens addresses of this scheme by default.
[[nodiscard]] std::optional<QString> defaultApplicationForScheme(const QString& scheme);

} // namespace skipnest::linuxdesktop
