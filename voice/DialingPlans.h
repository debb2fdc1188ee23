// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStringView>

#include <span>

namespace skipnest::voice {

// How the numbers of a country are dialled.
struct DialingPlan {
    const char* country = nullptr; // ISO 3166, upper case
    const char* code = nullptr;    // behind the "+"
    const char* trunk = "";        // before a number inside the country, never from abroad
    // Where numbers may begin like the trunk prefix, all of them have this many digits with it; 0
    // where none begins like it.
    int trunkDigits = 0;
    const char* abroad = "00"; // before a country code
};

// By country.
[[nodiscard]] std::span<const DialingPlan> dialingPlans();
// Null where it is none.
[[nodiscard]] const DialingPlan* dialingPlan(QStringView country);
// The plan of the country code that these digits begin with, any where several countries share it;
// null where they begin with none.
[[nodiscard]] const DialingPlan* dialingPlanOfCode(QStringView digits);

} // namespace skipnest::voice
