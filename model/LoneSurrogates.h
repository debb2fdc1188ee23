// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QJsonValue>
#include <QString>

namespace skipnest::model {

// Half a surrogate pair ("\ud83d") can be read from JSON but not written as UTF-8: what would be
// written must be what is kept in memory. Each becomes U+FFFD, in names of members too.
[[nodiscard]] QString withoutLoneSurrogates(QString text);
[[nodiscard]] QJsonValue withoutLoneSurrogates(const QJsonValue& value);

} // namespace skipnest::model
