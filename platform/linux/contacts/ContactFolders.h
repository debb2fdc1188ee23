// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/ContactStore.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace skipnest::linuxdesktop {

// Where a person's programs look for their settings and data.
struct PersonFolders {
    QString home;
    QString configuration; // $XDG_CONFIG_HOME
    QString data;          // $XDG_DATA_HOME
};

// Folders of vCards: the usual ones, "contacts" in the data folder and ".contacts" in the home
// folder, those that khard and vdirsyncer are set up with, and `more`, which the person named; only
// those that exist, each once.
[[nodiscard]] QStringList contactFolders(const PersonFolders& person, const QStringList& more);

// Everybody in the .vcf files of these folders and of the folders in them. Reads from the disk.
[[nodiscard]] std::vector<platform::Contact> readContactFolders(const QStringList& folders);

} // namespace skipnest::linuxdesktop
