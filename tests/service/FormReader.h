// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Result.h"
#include "platform/WebService.h"

#include <QByteArray>

namespace skipnest::tests {

// The fields of a query or an "application/x-www-form-urlencoded" body, taken at its word: only
// letters, digits and "-._~" stand for themselves, everything else is percent-encoded UTF-8, a
// blank too. Fails on any other byte, on "%" without two hexadecimal digits, on a pair without "="
// and on a name that occurs twice. Empty text has no fields.
[[nodiscard]] platform::Result<platform::FormFields> readForm(const QByteArray& text);

} // namespace skipnest::tests
