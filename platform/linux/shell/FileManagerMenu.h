// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/AppInfo.h"
#include "platform/Files.h"
#include "platform/ServicesMenu.h"

namespace skipnest::linuxdesktop {

// "Give it a key" in the context menus of the file managers that are installed, each in its own
// way: by a file of ours in the person's own folders. One without our marker line is the person's
// and is left alone.
class FileManagerMenu final : public platform::ServicesMenu {
public:
    // The folders are $XDG_DATA_HOME and $XDG_CONFIG_HOME.
    FileManagerMenu(platform::Files& files, platform::AppInfo app, QString dataFolder,
                    QString configFolder);

    // Unavailable where no file manager is known.
    [[nodiscard]] platform::Availability availability() const override;
    // Tries all, whatever happens to one; fails with the first failure.
    platform::Outcome refresh() override;

private:
    platform::Outcome write(const QString& path, const QByteArray& text);
    [[nodiscard]] bool mayReplace(const QString& path, const QByteArray& text) const;

    platform::Files& files_;
    platform::AppInfo app_;
    QString dataFolder_;
    QString configFolder_;
};

} // namespace skipnest::linuxdesktop
