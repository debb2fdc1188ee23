// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Result.h"
#include "platform/linux/index/NameTable.h"

#include <QString>

#include <optional>

namespace skipnest::linuxdesktop {

// The table of the last scan on the disk, so that a start reads no folders. The file is mapped: its
// pages belong to the system, which may drop and read them again. It is only ever replaced as a
// whole, for the user only (0600 in a 0700 folder).

// Nothing where there is no such file, or another than one of this version as it was written.
[[nodiscard]] std::optional<NameTable> loadNames(const QString& file);

platform::Outcome saveNames(const NameTable& table, const QString& file);

} // namespace skipnest::linuxdesktop
