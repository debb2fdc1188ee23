// SPDX-License-Identifier: Apache-2.0
#include "tests/service/FormReader.h"

#include <QStringDecoder>

#include <algorithm>

namespace skipnest::tests {
namespace {

using namespace Qt::StringLiterals;
using platform::Failure;
using platform::Result;

Failure malformed(const QString& why) {
    return {Failure::Kind::malformed, why};
}

bool isHexDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

bool standsForItself(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '-' ||
           c == '.' || c == '_' || c == '~';
}

Result<QString> readText(const QByteArray& encoded) {
    for (qsizetype i = 0; i < encoded.size(); ++i) {
        const bool isEscape = encoded[i] == '%' && i + 2 < encoded.size() &&
                              isHexDigit(encoded[i + 1]) && isHexDigit(encoded[i + 2]);
        if (isEscape)
            i += 2;
        else if (!standsForItself(encoded[i]))
            return malformed(u"byte 0x%1 is not percent-encoded"_s.arg(
                static_cast<unsigned char>(encoded[i]), 2, 16, QChar(u'0')));
    }
    QStringDecoder decode(QStringDecoder::Utf8);
    const QString text = decode(QByteArray::fromPercentEncoding(encoded));
    if (decode.hasError())
        return malformed(u"a text is no UTF-8"_s);
    return text;
}

} // namespace

Result<platform::FormFields> readForm(const QByteArray& text) {
    platform::FormFields fields;
    if (text.isEmpty())
        return fields;
    for (const QByteArray& pair : text.split('&')) {
        const qsizetype middle = pair.indexOf('=');
        if (middle < 1)
            return malformed(u"a field without name or value"_s);
        auto name = readText(pair.left(middle));
        auto value = readText(pair.mid(middle + 1));
        if (!name || !value)
            return (name ? value : name).failure();
        if (std::ranges::any_of(fields, [&](const auto& field) { return field.first == *name; }))
            return malformed(u"the field %1 comes twice"_s.arg(*name));
        fields.emplace_back(*name, *value);
    }
    return fields;
}

} // namespace skipnest::tests
