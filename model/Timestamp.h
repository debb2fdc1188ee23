// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

namespace skipnest::model {

// ISO 8601 as the configuration carries it: "2026-07-24T09:30:00Z", or with a fraction of a second
// (kept to the millisecond), or with an offset in place of Z. Nothing for any other form and for
// dates that no calendar has.
[[nodiscard]] std::optional<QDateTime> timestampFromText(const QString& text);

// In UTC with Z; the fraction only where there is one.
[[nodiscard]] QString timestampText(const QDateTime& time);

} // namespace skipnest::model
