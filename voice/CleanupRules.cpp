// SPDX-License-Identifier: Apache-2.0
#include "voice/CleanupRules.h"

#include <QHash>
#include <QStringView>

#include <algorithm>
#include <utility>

namespace skipnest::voice {
namespace {

using namespace Qt::StringLiterals;

// How often each occurs.
using Counts = QHash<QString, int>;

// Whether `part` has none that `whole` lacks, and none more often.
bool isWithin(const Counts& part, const Counts& whole) {
    return std::all_of(part.keyValueBegin(), part.keyValueEnd(), [&whole](const auto& each) {
        return each.second <= whole.value(each.first);
    });
}

// Runs of digits, in the digits of any script.
Counts numbersIn(const QString& text) {
    Counts numbers;
    QString run;
    const auto end = [&] {
        if (!run.isEmpty())
            ++numbers[std::exchange(run, {})];
    };
    for (const char32_t c : text.toUcs4()) {
        const int digit = QChar::digitValue(c);
        if (digit >= 0)
            run += QChar(u'0' + digit);
        else
            end();
    }
    end();
    return numbers;
}

// A full stop between two letters or digits, as in a name of the web; "3.50" is a number.
bool hasDomain(QStringView word) {
    for (qsizetype i = 1; i + 1 < word.size(); ++i) {
        if (word[i] == u'.' && word[i - 1].isLetterOrNumber() && word[i + 1].isLetter())
            return true;
    }
    return false;
}

Counts addressesIn(const QString& text) {
    Counts addresses;
    for (QStringView word : QStringView(text).split(u' ', Qt::SkipEmptyParts)) {
        while (!word.isEmpty() && !word.front().isLetterOrNumber())
            word = word.mid(1);
        while (!word.isEmpty() && !word.back().isLetterOrNumber())
            word.chop(1);
        if (word.contains(u'@') || word.contains(u"://") || hasDomain(word))
            ++addresses[word.toString().toLower()];
    }
    return addresses;
}

} // namespace

bool isFaithful(const QString& message, const QString& cleaned) {
    return !cleaned.isEmpty() && cleaned.size() <= 2 * message.size() + 40 &&
           isWithin(numbersIn(cleaned), numbersIn(message)) &&
           isWithin(addressesIn(cleaned.simplified()), addressesIn(message.simplified()));
}

} // namespace skipnest::voice
