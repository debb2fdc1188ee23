// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Owned.h"
#include "platform/Result.h"

#include <QByteArray>
#include <QString>

namespace skipnest::platform {

using ScopedAccess = Owned<struct ScopedAccessTag>;

// Bytes that find a target again after it was moved or renamed (macOS: security-scoped bookmarks).
class Bookmarks {
public:
    virtual ~Bookmarks() = default;

    [[nodiscard]] virtual Result<QByteArray> create(const QString& path) = 0;
    // The target's path now. Any bytes are taken; what is no bookmark of this backend is malformed.
    [[nodiscard]] virtual Result<QString> resolve(const QByteArray& bookmark) = 0;
    // Access to a resolved target while held; empty where the system needs no such permission.
    [[nodiscard]] virtual ScopedAccess startAccessing(const QString& path) = 0;
};

} // namespace skipnest::platform
