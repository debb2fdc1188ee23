// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Result.h"

#include <QJsonObject>
#include <QString>

namespace skipnest::cli::trace {

// Checks that an event is one of the format's, has every field it needs and no other, and that each
// is of its type, whether or not the simulation can play it yet. Returns the event's name;
// malformed with the field and what it should be otherwise.
[[nodiscard]] platform::Result<QString> checkShape(const QJsonObject& event);

} // namespace skipnest::cli::trace
