// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <utility>
#include <vector>

namespace skipnest::linuxdesktop {

// One property of a vCard, its value decoded from its transfer encoding and character set but with
// its escapes.
struct VCardProperty {
    QString name;      // upper case, without a group such as "item1."
    QStringList types; // upper case: "CELL", "PREF"; also of parameters without a name
    QString value;
};

struct VCardLines {
    bool isVersion2 = false; // 2.1 escapes the semicolon alone
    std::vector<VCardProperty> properties;
};

// The cards in a file of vCard 2.1, 3.0 or 4.0, or in the mixtures of them that programs write:
// folded lines, quoted-printable with soft line breaks, base64, any line end, UTF-8, UTF-16 and the
// sets that "CHARSET" names; bytes that are no UTF-8 count as Latin-1. Pictures and other contents
// in base64 are left out. Total: what is no card gives none, and a card that does not end counts.
[[nodiscard]] std::vector<VCardLines> readVCardLines(const QByteArray& file);

// The parts of a value between unescaped separators, each with its escapes resolved.
[[nodiscard]] QStringList splitVCardValue(const QString& value, QChar separator, bool isVersion2);

} // namespace skipnest::linuxdesktop
