// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/index/NameFolding.h"

#include <algorithm>

namespace skipnest::linuxdesktop {
namespace {

bool isAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<signed char>(c) >= 0; });
}

char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

} // namespace

std::string foldedName(const QString& name) {
    QString plain;
    plain.reserve(name.size());
    const QString decomposed = name.normalized(QString::NormalizationForm_D);
    for (const QChar c : decomposed) {
        if (!c.isMark())
            plain += c;
    }
    // The one letter of daily use that folds to two.
    constexpr char16_t sharpS = 0xDF;
    return plain.toCaseFolded().replace(QChar(sharpS), QStringLiteral("ss")).toStdString();
}

void appendFolded(std::string& pool, std::string_view utf8) {
    if (!isAscii(utf8)) {
        pool += foldedName(QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())));
        return;
    }
    const std::size_t start = pool.size();
    pool += utf8;
    std::transform(pool.begin() + static_cast<std::ptrdiff_t>(start), pool.end(),
                   pool.begin() + static_cast<std::ptrdiff_t>(start), lowered);
}

std::string foldedName(std::string_view utf8) {
    std::string folded;
    appendFolded(folded, utf8);
    return folded;
}

} // namespace skipnest::linuxdesktop
