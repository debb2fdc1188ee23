// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Bookmarks.h"

namespace skipnest::linuxdesktop {

// Bookmarks as a small JSON object: the path, and the identity (inode, device, birth time) of what
// was there. Keys unknown here are ignored, so that later versions can add what they need.
//
// The identity is that of the directory entry itself: a symbolic link is not followed. The person
// chose the link, it is the link that moves, and what it points at may change with every update of
// a package (a Flatpak's .desktop file is a link into a folder named after its version).
class LinuxBookmarks final : public platform::Bookmarks {
public:
    // Fails where nothing can be opened at the path; a dangling link counts as nothing.
    [[nodiscard]] platform::Result<QByteArray> create(const QString& path) override;

    // In this order: the path, while the same thing is there; the same thing under another name in
    // the same folder (at most 4,096 entries are looked at); the path, whatever is there now
    // (editors save by putting a new file in the old one's place); else notFound.
    [[nodiscard]] platform::Result<QString> resolve(const QByteArray& bookmark) override;

    [[nodiscard]] platform::ScopedAccess startAccessing(const QString& path) override;
};

} // namespace skipnest::linuxdesktop
