// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace skipnest::platform {

// Where the person's standard folders lie, by the desktop's own names for them ("Bilder").
// Absolute; empty where the desktop has none. They need not exist.
struct HomeFolders {
    QString home;
    QString downloads;
    QString documents;
    QString desktop;
    QString pictures;
    QString movies;
    QString music;
};

} // namespace skipnest::platform
