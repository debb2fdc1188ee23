// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/AppConfiguration.h"
#include "platform/Result.h"

#include <QByteArray>
#include <QJsonObject>

#include <cstdint>

namespace skipnest::model {

// A document above this is not looked into. A thousand shortcuts with bookmarks are about 1 MB; 16
// MB is no list a person made, and parsing it would hold up the start.
inline constexpr std::int64_t largestConfiguration = 16LL << 20;

// Takes any bytes. All or nothing: one missing required key, wrong type or unknown target type
// fails the whole document, and the detail names where ("shortcuts[3].targetType: …"), because half
// a list that is then saved would lose the other half.
//
// Integers must be integers that fit (3.0 is one; 3.5, true and "3" are not), booleans are no
// integers, null counts as absent for optional keys only. Base64, timestamps and ids are strict.
// Keys that are not known are kept at every level. Of a key that stands twice, the last one counts.
[[nodiscard]] platform::Result<AppConfiguration> decodeConfiguration(const QByteArray& bytes);
[[nodiscard]] platform::Result<AppConfiguration> fromJson(const QJsonObject& document);

// Pretty-printed with sorted keys and a line break at the end. Decoding it again yields an equal
// document. Absent optionals are left out.
[[nodiscard]] QByteArray encodeConfiguration(const AppConfiguration& configuration);
[[nodiscard]] QJsonObject toJson(const AppConfiguration& configuration);

} // namespace skipnest::model
