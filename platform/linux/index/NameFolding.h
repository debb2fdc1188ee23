// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace skipnest::linuxdesktop {

// A name as it is compared: UTF-8 without case and diacritics. "Übung" and "UBUNG" fold to the
// same, "Straße" and "STRASSE" too; a base letter of its own such as "ø" stays what it is.
[[nodiscard]] std::string foldedName(std::string_view utf8);
[[nodiscard]] std::string foldedName(const QString& name);

// The same appended to `pool`, for callers with a million of them.
void appendFolded(std::string& pool, std::string_view utf8);

} // namespace skipnest::linuxdesktop
