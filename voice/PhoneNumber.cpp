// SPDX-License-Identifier: Apache-2.0
#include "voice/PhoneNumber.h"

#include "voice/DialingPlans.h"

#include <QList>

#include <algorithm>
#include <array>
#include <string_view>

namespace skipnest::voice {
namespace {

using namespace Qt::StringLiterals;

// Of a whole number with its country code: what exists in the world.
constexpr qsizetype fewestDigits = 7;
constexpr qsizetype mostDigits = 15;

// What announces an extension, in lower case.
constexpr std::array extensionMarks{";ext=", "extension", "ext", "durchwahl", "dw", "x", "#", ","};

QChar keypadDigit(char32_t letter) {
    constexpr std::string_view digits = "22233344455566677778889999";
    return QChar::fromLatin1(digits[letter - U'a']);
}

QString withoutExtension(const QString& number) {
    qsizetype end = number.size();
    for (const char* mark : extensionMarks) {
        const QLatin1StringView text(mark);
        for (qsizetype at = number.indexOf(text); at >= 0; at = number.indexOf(text, at + 1)) {
            // Behind digits and before them, and no letter of a word: "1-800-FLEX" has none.
            const bool isPart = at == 0 || number[at - 1].isLetter();
            qsizetype next = at + text.size();
            while (next < number.size() && !number[next].isLetterOrNumber())
                ++next;
            if (!isPart && next < number.size() && number[next].isDigit())
                end = std::min(end, at);
        }
    }
    return number.left(end);
}

// "1-800-FLOWERS", but neither "Tel. 030 123456" nor "030 123456 (privat)": letters are digits
// where what precedes them is a number and none without them.
bool isSpelled(const QString& number) {
    constexpr qsizetype fewestBefore = 4;
    qsizetype digits = 0;
    qsizetype before = -1;
    for (const char32_t c : number.toUcs4()) {
        if (QChar::digitValue(c) >= 0)
            ++digits;
        else if (c >= U'a' && c <= U'z' && before < 0)
            before = digits;
    }
    return before >= fewestBefore && digits < fewestDigits;
}

struct Digits {
    bool hasPlus = false; // before the first one
    QString text;
};

Digits digitsOf(const QString& number) {
    const bool letters = isSpelled(number);
    Digits digits;
    for (const char32_t c : number.toUcs4()) {
        if (const int digit = QChar::digitValue(c); digit >= 0)
            digits.text += QChar(u'0' + digit);
        else if (letters && c >= U'a' && c <= U'z')
            digits.text += keypadDigit(c);
        else if ((c == U'+' || c == U'＋') && digits.text.isEmpty())
            digits.hasPlus = true;
    }
    return digits;
}

void removeTrunk(QString& digits, qsizetype at, const DialingPlan& plan) {
    const QLatin1StringView trunk(plan.trunk);
    while (!trunk.isEmpty() && QStringView(digits).mid(at).startsWith(trunk))
        digits.remove(at, trunk.size());
}

// A whole number, country code first.
std::optional<QString> checked(const QString& digits, const DialingPlan& plan) {
    const qsizetype national = digits.size() - QLatin1StringView(plan.code).size();
    const qsizetype exact = plan.trunkDigits - QLatin1StringView(plan.trunk).size();
    const bool isWhole = plan.trunkDigits != 0
                             ? national == exact
                             : digits.size() >= fewestDigits && digits.size() <= mostDigits;
    return isWhole ? std::optional(u'+' + digits) : std::nullopt;
}

// Digits behind a "+" or a prefix for abroad.
std::optional<QString> fromAbroad(QString digits) {
    const DialingPlan* plan = dialingPlanOfCode(digits);
    if (plan == nullptr)
        return std::nullopt;
    // "+49 (0)171": the trunk prefix stays at home. Where numbers may begin like it, it is none.
    if (plan->trunkDigits == 0)
        removeTrunk(digits, QLatin1StringView(plan->code).size(), *plan);
    return checked(digits, *plan);
}

} // namespace

std::optional<QString> internationalNumber(const QString& written, const QString& country) {
    const auto [hasPlus, digits] = digitsOf(withoutExtension(written.toLower()));
    if (hasPlus)
        return fromAbroad(digits);
    const DialingPlan* plan = dialingPlan(country);
    // The country's own prefix first: in Hong Kong "001" is one, and no "00" before a "1".
    for (const auto abroad : {QLatin1StringView(plan != nullptr ? plan->abroad : "00"), "00"_L1}) {
        if (digits.startsWith(abroad) && digits.size() > fewestDigits + abroad.size())
            return fromAbroad(digits.mid(abroad.size()));
    }
    if (plan == nullptr)
        return std::nullopt;
    QString national = digits;
    if (plan->trunkDigits == 0)
        removeTrunk(national, 0, *plan);
    else if (plan->trunkDigits == digits.size() &&
             digits.startsWith(QLatin1StringView(plan->trunk)))
        national.remove(0, QLatin1StringView(plan->trunk).size());
    // Fewer are those of a town, or of help in need.
    constexpr qsizetype fewestNational = 6;
    if (national.size() < fewestNational)
        return std::nullopt;
    return checked(QLatin1StringView(plan->code) + national, *plan);
}

} // namespace skipnest::voice
