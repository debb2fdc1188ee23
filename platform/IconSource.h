// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

class QImage;

namespace skipnest::platform {

// Pictures of applications, files and folders.
class IconSource {
public:
    virtual ~IconSource() = default;

    // Puts a square picture `pixels` wide (device pixels, at most 512) into `image`; false, and
    // `image` untouched, where the machine has none. Main thread; reads the disk the first time.
    // An argument rather than a result, so that programs without pictures load no library for them.
    [[nodiscard]] virtual bool icon(const QString& path, int pixels, QImage& image) = 0;
};

} // namespace skipnest::platform
