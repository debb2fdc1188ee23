// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/IconSource.h"
#include "platform/linux/DesktopEntries.h"

#include <QCache>
#include <QImage>

namespace skipnest::linuxdesktop {

// The desktop's icon theme. Applications by their desktop entry, folders and files by the names
// that the shared MIME database has for their type: a file's name tells that, nothing is read.
class ThemeIcons final : public platform::IconSource {
public:
    explicit ThemeIcons(DesktopEntries& entries);

    [[nodiscard]] bool icon(const QString& path, int pixels, QImage& image) override;

private:
    // By preference; one that starts with a slash is a file.
    [[nodiscard]] QStringList iconNames(const QString& path);

    DesktopEntries& entries_;
    QCache<QString, QImage> cache_;
    bool prepared_ = false;
};

} // namespace skipnest::linuxdesktop
