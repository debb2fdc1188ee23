// SPDX-License-Identifier: Apache-2.0
#include "platform/JsonDefaults.h"

#include <QJsonDocument>

#include <utility>

namespace skipnest::platform {
namespace {

constexpr std::int64_t largestFile = 1 << 20;

} // namespace

JsonDefaults::JsonDefaults(Files& files, QString path) : files_(files), path_(std::move(path)) {}

void JsonDefaults::load() const {
    if (std::exchange(loaded_, true))
        return;
    if (files_.kind(path_) == FileKind::none)
        return;
    const Result<QByteArray> bytes = files_.read(path_, largestFile);
    const QJsonDocument document = bytes ? QJsonDocument::fromJson(*bytes) : QJsonDocument();
    corrupt_ = !document.isObject();
    values_ = document.object();
}

QJsonValue JsonDefaults::value(const QString& key) const {
    load();
    return values_.value(key);
}

Outcome JsonDefaults::setValue(const QString& key, const QJsonValue& value) {
    load();
    if (value.isUndefined())
        values_.remove(key);
    else
        values_.insert(key, value);
    if (corrupt_) {
        if (const Outcome moved = files_.rename(path_, path_ + QStringLiteral(".corrupt")); !moved)
            return moved;
        corrupt_ = false;
    }
    const QString folder = path_.left(path_.lastIndexOf(u'/'));
    if (const Outcome made = files_.createFolder(folder); !made)
        return made;
    return writeDurably(files_, path_, QJsonDocument(values_).toJson());
}

} // namespace skipnest::platform
