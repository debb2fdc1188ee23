// SPDX-License-Identifier: Apache-2.0
#include "model/RecordId.h"

#include <QHashFunctions>
#include <QUuid>

#include <utility>

namespace skipnest::model {

RecordId::RecordId(QString text) : text_(std::move(text)) {}

RecordId RecordId::make() {
    return RecordId(QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper());
}

std::optional<RecordId> RecordId::fromText(const QString& text) {
    constexpr qsizetype length = 36;
    if (text.size() != length)
        return std::nullopt;
    for (qsizetype i = 0; i < length; ++i) {
        const char16_t c = text.at(i).unicode();
        const bool digit =
            (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
        const bool dashHere = i == 8 || i == 13 || i == 18 || i == 23;
        if (dashHere ? c != u'-' : !digit)
            return std::nullopt;
    }
    return RecordId(text);
}

std::size_t qHash(const RecordId& id, std::size_t seed) {
    return ::qHash(id.text().toLower(), seed);
}

} // namespace skipnest::model
