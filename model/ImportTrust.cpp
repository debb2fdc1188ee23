// SPDX-License-Identifier: Apache-2.0
#include "model/ImportTrust.h"

#include "platform/Bookmarks.h"
#include "platform/UserDefaults.h"
#include "platform/Workspace.h"

#include <QDir>
#include <QJsonArray>

#include <algorithm>
#include <utility>

namespace skipnest::model {
namespace {

QString unconfirmedKey() {
    return QStringLiteral("sk.import.unconfirmed");
}

} // namespace

ImportTrust::ImportTrust(platform::UserDefaults& defaults, platform::Workspace& workspace,
                         platform::Bookmarks& bookmarks, QStringList installedApplications)
    : defaults_(defaults), workspace_(workspace), bookmarks_(bookmarks),
      installedApplications_(std::move(installedApplications)) {
    for (const QJsonValue& text : defaults_.value(unconfirmedKey()).toArray()) {
        if (const auto id = RecordId::fromText(text.toString()))
            unconfirmed_.insert(*id);
    }
}

bool ImportTrust::isForeign(const ShortcutItem& item) const {
    QStringList paths = {item.targetPath};
    if (item.bookmarkData) {
        if (const auto found = bookmarks_.resolve(*item.bookmarkData))
            paths.append(*found);
    }
    return std::ranges::any_of(paths, [this](const QString& written) {
        const QString path = QDir::cleanPath(written);
        return workspace_.isApplication(path) &&
               std::ranges::none_of(installedApplications_, [&path](const QString& folder) {
                   return path.startsWith(folder + u'/');
               });
    });
}

platform::Outcome ImportTrust::addUnconfirmed(const std::vector<RecordId>& ids) {
    std::set<RecordId> all = unconfirmed_;
    all.insert(ids.begin(), ids.end());
    return all == unconfirmed_ ? platform::Outcome(platform::Done{}) : store(all);
}

bool ImportTrust::confirm(const RecordId& id) {
    std::set<RecordId> rest = unconfirmed_;
    if (rest.erase(id) == 0)
        return false;
    // Not being able to store it costs one more question after the next start.
    (void)store(rest);
    unconfirmed_ = std::move(rest);
    return true;
}

platform::Outcome ImportTrust::store(const std::set<RecordId>& ids) {
    const QJsonValue before = defaults_.value(unconfirmedKey());
    QJsonArray texts;
    for (const RecordId& id : ids)
        texts.append(id.text());
    const auto stored = defaults_.setValue(
        unconfirmedKey(), texts.isEmpty() ? QJsonValue(QJsonValue::Undefined) : QJsonValue(texts));
    if (stored)
        unconfirmed_ = ids;
    else
        (void)defaults_.setValue(unconfirmedKey(), before);
    return stored;
}

} // namespace skipnest::model
