// SPDX-License-Identifier: Apache-2.0
#include "stats/ChallengeName.h"

#include <algorithm>
#include <string>

namespace skipnest::stats {
namespace {

bool turnsDirection(char32_t c) {
    return c == 0x61c || c == 0x200e || c == 0x200f || (c >= 0x202a && c <= 0x202e) ||
           (c >= 0x2066 && c <= 0x2069);
}

bool isVisible(char32_t c) {
    switch (QChar::category(c)) {
    case QChar::Separator_Space:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
    case QChar::Mark_NonSpacing:
    case QChar::Mark_SpacingCombining:
    case QChar::Mark_Enclosing:
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_Surrogate:
    case QChar::Other_PrivateUse:
    case QChar::Other_NotAssigned:
        return false;
    default:
        // Letters that are drawn as nothing.
        return c != 0x115f && c != 0x1160 && c != 0x2800 && c != 0x3164 && c != 0xffa0;
    }
}

} // namespace

QString challengerLine(const QString& name) {
    QString line;
    line.reserve(name.size());
    for (const char32_t c : name.toStdU32String()) {
        const QChar::Category category = QChar::category(c);
        if (category == QChar::Other_Control)
            line += u' ';
        else if (c != QChar::ReplacementCharacter && !QChar::isNonCharacter(c) &&
                 !turnsDirection(c))
            line += QChar::fromUcs4(c);
    }
    return line.simplified();
}

std::optional<QString> challengerName(const QString& typed) {
    const QString name = challengerLine(typed);
    const std::u32string codePoints = name.toStdU32String();
    if (codePoints.size() > longestChallengerName || !std::ranges::any_of(codePoints, isVisible))
        return std::nullopt;
    return name;
}

QString countryCode(const QString& code) {
    const QString lower = code.toLower();
    const auto isLetter = [](QChar c) { return c >= u'a' && c <= u'z'; };
    return lower.size() == 2 && std::ranges::all_of(lower, isLetter) ? lower : QString();
}

} // namespace skipnest::stats
