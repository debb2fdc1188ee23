// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <cstddef>
#include <optional>

namespace skipnest::stats {

// Code points of a challenger's name.
constexpr std::size_t longestChallengerName = 24;

// A name from outside in one line: blanks for line breaks and other control characters, none at the
// ends or twice in a row, and without characters that turn the direction of what follows or are no
// characters at all. May be empty. Joiners stay: emoji and Persian need them.
[[nodiscard]] QString challengerLine(const QString& name);

// The name as it is sent. Nothing where it is too long, or where nothing of it could be seen.
[[nodiscard]] std::optional<QString> challengerName(const QString& typed);

// Two lower-case letters; empty where `code` is no such code.
[[nodiscard]] QString countryCode(const QString& code);

} // namespace skipnest::stats
