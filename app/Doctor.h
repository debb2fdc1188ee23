// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Availability.h"
#include "platform/Backend.h"

#include <QJsonArray>
#include <QString>

#include <vector>

namespace skipnest::app {

// One thing that works here, or does not, and why.
struct DoctorRow {
    QString name;
    platform::Availability availability;
};

// "available", "limited" or "unavailable".
[[nodiscard]] QString stateName(platform::Availability::State state);

// What this machine and session can do. Asks the ports only; writes nothing.
[[nodiscard]] std::vector<DoctorRow> doctorRows(const platform::Backend& backend);

[[nodiscard]] QJsonArray doctorJson(const std::vector<DoctorRow>& rows);
// A table for people, one row a line, reason and remedy indented below what does not work.
[[nodiscard]] QString doctorText(const std::vector<DoctorRow>& rows);

} // namespace skipnest::app
