// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Result.h"

#include <QJsonValue>
#include <QString>

namespace skipnest::platform {

// Small records beside the configuration, one JSON value a key.
class UserDefaults {
public:
    virtual ~UserDefaults() = default;

    // Undefined where the key is absent.
    [[nodiscard]] virtual QJsonValue value(const QString& key) const = 0;
    // An undefined value removes the key. Written at once; on failure the running program keeps the
    // new value.
    virtual Outcome setValue(const QString& key, const QJsonValue& value) = 0;
};

} // namespace skipnest::platform
