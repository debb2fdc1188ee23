// SPDX-License-Identifier: Apache-2.0
#include "cli/TraceStage.h"

#include <QJsonArray>

namespace skipnest::cli::trace {

using namespace Qt::StringLiterals;

namespace {

QJsonObject comboObject(const model::KeyCombo& combo) {
    return {{u"keyCode"_s, combo.keyCode},
            {u"modifiers"_s, static_cast<qint64>(combo.modifiers.rawValue)}};
}

} // namespace

QString targetTypeName(model::ShortcutItem::TargetType type) {
    switch (type) {
    case model::ShortcutItem::TargetType::file:
        return u"file"_s;
    case model::ShortcutItem::TargetType::folder:
        return u"folder"_s;
    case model::ShortcutItem::TargetType::application:
        return u"application"_s;
    }
    return {};
}

TraceStage::TraceStage()
    : document_{{u"version"_s, 1},
                {u"shortcuts"_s, QJsonArray()},
                {u"launchAtLogin"_s, false},
                {u"menuBarIconName"_s, u"skipnest"_s}} {}

void TraceStage::apply(const SetConfig& event) {
    described_ = true;
    for (auto key = event.set.begin(); key != event.set.end(); ++key)
        document_.insert(key.key(), key.value());
}

void TraceStage::add(const AddShortcut& event, const QDateTime& createdAt) {
    described_ = true;
    QJsonArray shortcuts = document_[u"shortcuts"_s].toArray();
    shortcuts.append(record(event, shortcuts.size(), createdAt));
    document_[u"shortcuts"_s] = shortcuts;
}

QJsonObject TraceStage::record(const AddShortcut& event, qsizetype shortcuts,
                               const QDateTime& createdAt) {
    const QString id = u"00000000-0000-4000-8000-%1"_s.arg(++lastRecord_, 12, 10, QLatin1Char('0'));
    QJsonObject record{
        {u"id"_s, id},
        {u"name"_s, event.name},
        {u"targetPath"_s, event.path},
        {u"targetType"_s, targetTypeName(event.type)},
        {u"sortOrder"_s, shortcuts},
        {u"createdAt"_s, createdAt.toUTC().toString(u"yyyy-MM-ddTHH:mm:ss'Z'"_s)},
    };
    if (event.key)
        record[u"keyCombo"_s] = comboObject(*event.key);
    if (event.hideKey)
        record[u"hideKeyCombo"_s] = comboObject(*event.hideKey);
    if (bookmarked_.contains(event.path))
        record[u"bookmarkData"_s] =
            QString::fromLatin1(sim::SimBookmarks::bytesFor(event.path).toBase64());
    return record;
}

QJsonObject TraceStage::document() const {
    QJsonObject document = document_;
    QJsonArray shortcuts = document[u"shortcuts"_s].toArray();
    for (qsizetype i = 0; i < shortcuts.size(); ++i) {
        QJsonObject record = shortcuts[i].toObject();
        const QString path = record[u"targetPath"_s].toString();
        // The line about the bookmark may come after the one about the shortcut.
        if (bookmarked_.contains(path) && !record.contains(u"bookmarkData"_s)) {
            record[u"bookmarkData"_s] =
                QString::fromLatin1(sim::SimBookmarks::bytesFor(path).toBase64());
            shortcuts[i] = record;
        }
    }
    if (!shortcuts.isEmpty())
        document[u"shortcuts"_s] = shortcuts;
    return document;
}

} // namespace skipnest::cli::trace
