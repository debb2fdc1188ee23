// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace skipnest::voice {

// What a folded text sounds like, by one set of rules for German and English: "photoshop" and
// "fotoshop", "maier" and "meyer", "kalender" and "calender" have one key. Consonants are parted by
// where they are spoken, voiced and voiceless being one; of each run of vowels only its colour
// counts. White space and signs do not sound. Letters of other scripts and digits stand for
// themselves. An empty key says nothing: it is equal to no other.
[[nodiscard]] std::u32string phoneticKey(std::u32string_view folded);

} // namespace skipnest::voice
