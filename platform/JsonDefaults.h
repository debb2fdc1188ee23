// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Files.h"
#include "platform/UserDefaults.h"

#include <QJsonObject>

namespace skipnest::platform {

// UserDefaults in one JSON file, read on first use and written whole and durably at each change. A
// file that does not decode is moved to NAME.corrupt before the first write and counts as empty.
class JsonDefaults final : public UserDefaults {
public:
    JsonDefaults(Files& files, QString path);

    [[nodiscard]] QJsonValue value(const QString& key) const override;
    Outcome setValue(const QString& key, const QJsonValue& value) override;

private:
    void load() const;

    Files& files_;
    QString path_;
    mutable bool loaded_ = false;
    mutable bool corrupt_ = false;
    mutable QJsonObject values_;
};

} // namespace skipnest::platform
