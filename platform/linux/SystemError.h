// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Result.h"

#include <QString>

namespace skipnest::linuxdesktop {

// A failed system call as a Failure: "DOING SUBJECT: the system's words", never translated. The
// kind is `notFound` and `refused` where the error number says so, else `system`.
[[nodiscard]] platform::Failure systemFailure(int error, const QString& doing,
                                              const QString& subject);

} // namespace skipnest::linuxdesktop
