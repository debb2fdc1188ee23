// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ShortcutItem.h"
#include "platform/Result.h"

#include <QStringList>

#include <set>
#include <vector>

namespace skipnest::platform {
class Bookmarks;
class UserDefaults;
class Workspace;
} // namespace skipnest::platform

namespace skipnest::model {

// Which records came with an import, would run a program that nobody installed, and have not been
// confirmed. They are kept beside the document, under "sk.import.unconfirmed", because a document
// that is exported or restored must not vouch for itself.
//
// A removed record stays known: a snapshot may bring it back.
class ImportTrust {
public:
    ImportTrust(platform::UserDefaults& defaults, platform::Workspace& workspace,
                platform::Bookmarks& bookmarks, QStringList installedApplications);

    // The target, as written or as its bookmark finds it now, is an application outside the folders
    // of installed ones. What the record says of its own type counts for nothing.
    [[nodiscard]] bool isForeign(const ShortcutItem& item) const;

    [[nodiscard]] bool isConfirmed(const RecordId& id) const { return !unconfirmed_.contains(id); }
    // On failure nothing has changed: a record that is forgotten here would run at the next start.
    platform::Outcome addUnconfirmed(const std::vector<RecordId>& ids);
    // True where the record was waiting.
    bool confirm(const RecordId& id);

private:
    platform::Outcome store(const std::set<RecordId>& ids);

    platform::UserDefaults& defaults_;
    platform::Workspace& workspace_;
    platform::Bookmarks& bookmarks_;
    QStringList installedApplications_;
    std::set<RecordId> unconfirmed_;
};

} // namespace skipnest::model
