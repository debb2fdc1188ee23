// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "voice/VoiceCommand.h"

#include <QString>
#include <QUrl>

namespace skipnest::voice {

// The address that a search template ("…?q=%q") gives for the words of a query.
[[nodiscard]] QUrl searchAddress(const QString& searchTemplate, const QString& query);

} // namespace skipnest::voice
