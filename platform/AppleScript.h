// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace skipnest::platform {

// The text as it may stand between the quotes of an AppleScript string literal.
[[nodiscard]] QString escapedForAppleScript(QString text);

// The script within a timeout of 4 s for each of its commands, so that an application that hangs
// does not hold the script for the two minutes that the system would wait.
[[nodiscard]] QString withAppleScriptTimeout(const QString& script);
// Takes that off again; a script without it stays as it is.
[[nodiscard]] QString withoutAppleScriptTimeout(const QString& script);

} // namespace skipnest::platform
