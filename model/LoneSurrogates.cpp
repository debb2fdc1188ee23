// SPDX-License-Identifier: Apache-2.0
#include "model/LoneSurrogates.h"

#include <QJsonArray>
#include <QJsonObject>

namespace skipnest::model {

QString withoutLoneSurrogates(QString text) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate())
            ++i;
        else if (text.at(i).isSurrogate())
            text[i] = QChar::ReplacementCharacter;
    }
    return text;
}

QJsonValue withoutLoneSurrogates(const QJsonValue& value) {
    switch (value.type()) {
    case QJsonValue::String:
        return withoutLoneSurrogates(value.toString());
    case QJsonValue::Array: {
        QJsonArray array;
        for (const QJsonValueConstRef element : value.toArray())
            array.append(withoutLoneSurrogates(element));
        return array;
    }
    case QJsonValue::Object: {
        const QJsonObject old = value.toObject();
        QJsonObject object;
        for (auto it = old.begin(); it != old.end(); ++it)
            object.insert(withoutLoneSurrogates(it.key()), withoutLoneSurrogates(it.value()));
        return object;
    }
    case QJsonValue::Null:
    case QJsonValue::Bool:
    case QJsonValue::Double:
    case QJsonValue::Undefined:
        break;
    }
    return value;
}

} // namespace skipnest::model
