// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <optional>

namespace skipnest::voice {

// A telephone number as people write it, in international form: "+" and at most 15 digits, country
// code first. `country` (ISO 3166, any case) is where a number without a country code belongs.
//
// Taken as one writes them: signs and blanks between the digits, digits of every script, letters
// that stand for the digit of their key ("1-800-FLOWERS"), the trunk prefix in brackets or not
// ("+49 (0)171"), a country code behind "+", "00" or the country's own prefix for abroad. An
// extension behind the number is left off: no link can carry it.
//
// Nothing where there is no such number: without a known country for one that needs it, and for
// those that only exist in their country, such as "110".
[[nodiscard]] std::optional<QString> internationalNumber(const QString& written,
                                                         const QString& country);

} // namespace skipnest::voice
