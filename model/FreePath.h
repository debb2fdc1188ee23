// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Files.h"

#include <QDateTime>
#include <QString>

namespace skipnest::model {

// A path where nothing is yet, for something to be kept beside the file at `path`:
// "PATH.corrupt-20260724T093015" for the suffix "corrupt", with "-2" and on behind it where that is
// taken.
[[nodiscard]] QString freePathBeside(const platform::Files& files, const QString& path,
                                     const QString& suffix, const QDateTime& local);

} // namespace skipnest::model
