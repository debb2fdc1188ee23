// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Result.h"

#include <QString>

#include <optional>

namespace skipnest::linuxdesktop {

// Starts the program of a desktop entry by GIO, which knows D-Bus activation, field codes,
// terminals and working folders, and hands it the activation token: in the environment
// (XDG_ACTIVATION_TOKEN, and DESKTOP_STARTUP_ID for GTK 3) or with the D-Bus call. An empty token
// hands over nothing, and no token of ours either. Returns when the program was started, or its
// D-Bus call sent.
platform::Outcome launchEntry(const QString& entryPath, const QString& activationToken);

// The same with a file or folder to open by this entry's program.
platform::Outcome launchEntryOn(const QString& entryPath, const QString& filePath,
                                const QString& activationToken);

// The desktop entry that opens this file or folder by default.
[[nodiscard]] std::optional<QString> defaultEntryFor(const QString& filePath);

} // namespace skipnest::linuxdesktop
