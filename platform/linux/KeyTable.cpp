// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/KeyTable.h"

#include <array>

namespace skipnest::linuxdesktop {
namespace {

// clang-format off
constexpr auto keys = std::to_array<PhysicalKey>({
    // The key left of 1 is 50 on every layout and the extra ISO key beside left Shift is 10: a PC
    // keyboard does not say whether it is ANSI or ISO.
    {50, "TLDE", 41}, {18, "AE01", 2}, {19, "AE02", 3}, {20, "AE03", 4}, {21, "AE04", 5},
    {23, "AE05", 6}, {22, "AE06", 7}, {26, "AE07", 8}, {28, "AE08", 9}, {25, "AE09", 10},
    {29, "AE10", 11}, {27, "AE11", 12}, {24, "AE12", 13}, {51, "BKSP", 14},
    {48, "TAB", 15}, {12, "AD01", 16}, {13, "AD02", 17}, {14, "AD03", 18}, {15, "AD04", 19},
    {17, "AD05", 20}, {16, "AD06", 21}, {32, "AD07", 22}, {34, "AD08", 23}, {31, "AD09", 24},
    {35, "AD10", 25}, {33, "AD11", 26}, {30, "AD12", 27}, {42, "BKSL", 43},
    {0, "AC01", 30}, {1, "AC02", 31}, {2, "AC03", 32}, {3, "AC04", 33}, {5, "AC05", 34},
    {4, "AC06", 35}, {38, "AC07", 36}, {40, "AC08", 37}, {37, "AC09", 38}, {41, "AC10", 39},
    {39, "AC11", 40}, {36, "RTRN", 28},
    {10, "LSGT", 86}, {6, "AB01", 44}, {7, "AB02", 45}, {8, "AB03", 46}, {9, "AB04", 47},
    {11, "AB05", 48}, {45, "AB06", 49}, {46, "AB07", 50}, {43, "AB08", 51}, {47, "AB09", 52},
    {44, "AB10", 53}, {49, "SPCE", 57},

    {54, "RWIN", 126}, {55, "LWIN", 125}, {56, "LFSH", 42}, {57, "CAPS", 58}, {58, "LALT", 56},
    {59, "LCTL", 29}, {60, "RTSH", 54}, {61, "RALT", 100}, {62, "RCTL", 97}, {63, "FN", 464},

    {53, "ESC", 1}, {122, "FK01", 59}, {120, "FK02", 60}, {99, "FK03", 61}, {118, "FK04", 62},
    {96, "FK05", 63}, {97, "FK06", 64}, {98, "FK07", 65}, {100, "FK08", 66}, {101, "FK09", 67},
    {109, "FK10", 68}, {103, "FK11", 87}, {111, "FK12", 88}, {105, "FK13", 183},
    {107, "FK14", 184}, {113, "FK15", 185}, {106, "FK16", 186}, {64, "FK17", 187},
    {79, "FK18", 188}, {80, "FK19", 189}, {90, "FK20", 190},

    // Insert sits where Help does.
    {114, "INS", 110}, {115, "HOME", 102}, {116, "PGUP", 104}, {117, "DELE", 111},
    {119, "END", 107}, {121, "PGDN", 109}, {123, "LEFT", 105}, {124, "RGHT", 106},
    {125, "DOWN", 108}, {126, "UP", 103}, {110, "COMP", 127},

    // Num Lock sits where Clear does.
    {71, "NMLK", 69}, {75, "KPDV", 98}, {67, "KPMU", 55}, {78, "KPSU", 74}, {69, "KPAD", 78},
    {76, "KPEN", 96}, {65, "KPDL", 83}, {81, "KPEQ", 117}, {82, "KP0", 82}, {83, "KP1", 79},
    {84, "KP2", 80}, {85, "KP3", 81}, {86, "KP4", 75}, {87, "KP5", 76}, {88, "KP6", 77},
    {89, "KP7", 71}, {91, "KP8", 72}, {92, "KP9", 73},

    {72, "VOL+", 115}, {73, "VOL-", 114}, {74, "MUTE", 113},

    // JIS. Eisu and Kana flank the space bar, where PC keyboards have Muhenkan and Henkan.
    {93, "AE13", 124}, {94, "AB11", 89}, {95, "JPCM", 95}, {102, "MUHE", 94}, {104, "HENK", 92},
});
// clang-format on

consteval bool everyCodeOnceAndBelowLimit() {
    std::array<bool, keyCodeLimit> seen{};
    for (const PhysicalKey& key : keys) {
        if (key.keyCode >= keyCodeLimit || seen[key.keyCode])
            return false;
        seen[key.keyCode] = true;
    }
    return true;
}
static_assert(everyCodeOnceAndBelowLimit());

} // namespace

std::span<const PhysicalKey> physicalKeys() {
    return keys;
}

} // namespace skipnest::linuxdesktop
