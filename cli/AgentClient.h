// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cli/CommandLine.h"

#include <QJsonObject>

#include <optional>

namespace skipnest::cli {

// Sends one request to the running agent and waits for the answer, 5 s at most. Nothing where no
// agent listens.
[[nodiscard]] std::optional<QJsonObject> askAgent(const QString& runtimeFolder,
                                                  const QJsonObject& request);

} // namespace skipnest::cli
