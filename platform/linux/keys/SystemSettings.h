// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/linux/keys/DesktopClaims.h"

#include <map>
#include <memory>

struct _GSettings;
struct _GSettingsSchema;

namespace skipnest::linuxdesktop {

// The settings of this session by GIO. For one reading on one thread: it keeps open what it read.
class SystemSettings final : public SettingsSource {
public:
    SystemSettings();
    ~SystemSettings() override;
    SystemSettings(const SystemSettings&) = delete;
    SystemSettings& operator=(const SystemSettings&) = delete;

    [[nodiscard]] QStringList keys(const QString& schema) const override;
    [[nodiscard]] QStringList texts(const QString& schema, const QString& path,
                                    const QString& key) const override;

private:
    struct Unref {
        void operator()(_GSettings* settings) const;
        void operator()(_GSettingsSchema* schema) const;
    };
    using Schema = std::unique_ptr<_GSettingsSchema, Unref>;
    using Settings = std::unique_ptr<_GSettings, Unref>;

    [[nodiscard]] static Schema find(const QString& schema);

    mutable std::map<QString, Settings> fixed_; // by schema
};

} // namespace skipnest::linuxdesktop
