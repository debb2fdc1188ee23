// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace skipnest::voice {

// Whether a list of a few words has the word.
template <std::size_t size>
[[nodiscard]] bool isOneOf(const QStringView (&list)[size], const QString& word) {
    return std::ranges::find(list, QStringView(word)) != std::end(list);
}

} // namespace skipnest::voice
