// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Result.h"

#include <QString>

#include <array>
#include <cstddef>
#include <string_view>

#include <climits>

namespace skipnest::linuxdesktop {

class CodePlaces;

// The files that a crash concerns: prepared in peace, used in a signal handler by plain system
// calls.
class CrashRecordFile {
public:
    // Fails where the folder is not there or the path too long for the system.
    platform::Outcome prepare(const QString& path);

    // From the kernel's list of this process's mappings.
    void readMappings(CodePlaces& places);
    // In one step takes the place of an older record, which stays where the disk is full.
    void replace(std::string_view record);

private:
    std::array<char, PATH_MAX> path_{};
    std::array<char, PATH_MAX> temporary_{};
    // Open from the start: a program may crash just because it has no descriptor left. Closed
    // before the record is opened, it leaves its number for that.
    int mappings_ = -1;
};

} // namespace skipnest::linuxdesktop
