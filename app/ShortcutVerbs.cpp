// SPDX-License-Identifier: Apache-2.0
#include "app/ShortcutVerbs.h"

#include "app/DroppedTarget.h"
#include "model/ComboRules.h"
#include "model/ComboText.h"
#include "platform/UsKeyboardLayout.h"

#include <QStringBuilder>

#include <algorithm>
#include <optional>

namespace skipnest::app {

using model::KeyCombo;
using model::ShortcutItem;
using platform::Failure;
using platform::Result;

namespace {

QString typeName(ShortcutItem::TargetType type) {
    switch (type) {
    case ShortcutItem::TargetType::file:
        return QStringLiteral("file");
    case ShortcutItem::TargetType::folder:
        return QStringLiteral("folder");
    case ShortcutItem::TargetType::application:
        return QStringLiteral("application");
    }
    Q_UNREACHABLE();
}

QJsonValue comboJson(const std::optional<KeyCombo>& combo) {
    return combo ? QJsonValue(words(*combo, platform::UsKeyboardLayout())) : QJsonValue();
}

// The combo in one field of a request, checked as the key recorder checks it.
Result<std::optional<KeyCombo>> requestedCombo(const model::ShortcutListViewModel& list,
                                               const QJsonValue& text) {
    if (text.isUndefined() || text.isNull())
        return std::optional<KeyCombo>();
    const Result<KeyCombo> combo = model::parseCombo(text.toString());
    if (!combo)
        return combo.failure();
    const platform::UsKeyboardLayout layout;
    if (const auto refused = model::refusal(*combo, layout))
        return Failure{Failure::Kind::refused, *refused};
    for (const ShortcutItem& item : list.shortcuts()) {
        if (item.keyCombo == *combo || item.hideKeyCombo == *combo)
            return Failure{Failure::Kind::refused, words(*combo, layout) %
                                                       u" is already assigned to \"" % item.name %
                                                       u"\""};
    }
    return std::optional(*combo);
}

} // namespace

QJsonObject shortcutJson(const ShortcutItem& item) {
    return {
        {QStringLiteral("id"), item.id.text()},
        {QStringLiteral("name"), item.name},
        {QStringLiteral("targetPath"), item.targetPath},
        {QStringLiteral("targetType"), typeName(item.targetType)},
        {QStringLiteral("sortOrder"), qint64(item.sortOrder)},
        {QStringLiteral("key"), comboJson(item.keyCombo)},
        {QStringLiteral("hideKey"), comboJson(item.hideKeyCombo)},
    };
}

ControlReply addVerb(model::ShortcutListViewModel& list, platform::Files& files,
                     const QJsonObject& request) {
    QString path = request.value(u"path").toString();
    if (!path.startsWith(u'/')) {
        const auto target = droppedTarget({path}, files);
        if (const auto* refusal = std::get_if<DropRefusal>(&target))
            return ControlReply::failure(refusalText(*refusal));
        path = std::get<QString>(target);
    }
    if (files.kind(path) == platform::FileKind::none)
        return ControlReply::failure(path % u" does not exist");
    if (const auto known = list.find(path))
        return ControlReply::failure(path % u" has a shortcut already: \"" % known->name % u"\"");
    const auto key = requestedCombo(list, request.value(u"key"));
    if (!key)
        return ControlReply::failure(key.failure().detail);
    const auto hideKey = requestedCombo(list, request.value(u"hideKey"));
    if (!hideKey)
        return ControlReply::failure(hideKey.failure().detail);
    if (*key && *key == *hideKey)
        return ControlReply::failure(QStringLiteral("key and hide key are the same"));
    return ControlReply::success(shortcutJson(list.addShortcut(path, *key, *hideKey)));
}

ControlReply removeVerb(model::ShortcutListViewModel& list, const QJsonObject& request) {
    const auto named = namedShortcut(list, request);
    if (const auto* refusal = std::get_if<ControlReply>(&named))
        return *refusal;
    const ShortcutItem& item = std::get<ShortcutItem>(named);
    list.remove(item.id);
    return ControlReply::success(shortcutJson(item));
}

ControlReply confirmVerb(model::ShortcutListViewModel& list, const QJsonObject& request) {
    const auto named = namedShortcut(list, request);
    if (const auto* refusal = std::get_if<ControlReply>(&named))
        return *refusal;
    const ShortcutItem& item = std::get<ShortcutItem>(named);
    list.confirm(item.id);
    return ControlReply::success(shortcutJson(item));
}

QJsonArray listVerb(const model::ShortcutListViewModel& list) {
    QJsonArray items;
    for (const ShortcutItem& item : list.shortcuts())
        items.append(shortcutJson(item));
    return items;
}

ControlReply restoreVerb(model::StorageService& storage, const QJsonObject& request) {
    std::optional<QDate> day;
    if (const QJsonValue date = request.value(u"date"); !date.isUndefined() && !date.isNull()) {
        day = QDate::fromString(date.toString(), QStringLiteral("yyyy-MM-dd"));
        if (!day->isValid())
            return ControlReply::failure(QStringLiteral("a date is given as yyyy-MM-dd"));
    }
    const Result<QString> restored = storage.restore(day);
    if (!restored)
        return ControlReply::failure(restored.failure().detail);
    return ControlReply::success(QJsonObject{{QStringLiteral("restored"), *restored}});
}

NamedShortcut confirmedShortcut(const model::ShortcutListViewModel& list,
                                const QJsonObject& request) {
    NamedShortcut named = namedShortcut(list, request);
    const auto* item = std::get_if<ShortcutItem>(&named);
    if (item == nullptr || list.isConfirmed(item->id))
        return named;
    return ControlReply::failure(u'"' % item->name % u"\" was imported and runs a program from " %
                                 item->targetPath %
                                 u"; confirm it first, in the list or with `skipnest confirm`");
}

NamedShortcut namedShortcut(const model::ShortcutListViewModel& list, const QJsonObject& request) {
    const QString name = request.value(u"name").toString();
    if (const auto id = model::RecordId::fromText(name)) {
        if (const auto item = list.item(*id))
            return *item;
    }
    const std::vector<ShortcutItem> matches = list.findByName(name);
    if (matches.size() == 1)
        return matches.front();
    if (matches.empty())
        return ControlReply::failure(u"no shortcut is called \"" % name % u"\"");
    QJsonArray names;
    QStringList quoted;
    for (const ShortcutItem& item : matches) {
        names.append(item.name);
        quoted.append(u'"' + item.name + u'"');
    }
    return ControlReply::failure(u"several shortcuts match \"" % name % u"\": " %
                                     quoted.join(QStringLiteral(", ")),
                                 {{QStringLiteral("matches"), names}});
}

} // namespace skipnest::app
