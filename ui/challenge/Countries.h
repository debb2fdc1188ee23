// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <vector>

namespace skipnest::ui {

struct Country {
    QString code; // ISO 3166, lower case
    QString name; // in the person's language

    [[nodiscard]] const QString& key() const { return code; }
    bool operator==(const Country&) const = default;
};

// All of them, as the person's language sorts them.
[[nodiscard]] std::vector<Country> countries();
// Empty for a code that no country has.
[[nodiscard]] QString countryName(const QString& code);
// The two characters that fonts with flags draw as one. `code` is two lower-case letters.
[[nodiscard]] QString flagLetters(const QString& code);

} // namespace skipnest::ui
