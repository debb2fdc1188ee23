// SPDX-License-Identifier: Apache-2.0
#include "voice/PhoneNumber.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void require(bool holds) {
    if (!holds)
        std::abort();
}

} // namespace

// Two letters of a country, and a number as somebody wrote it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString country = QString::fromLatin1(bytes.left(2));
    const auto number =
        skipnest::voice::internationalNumber(QString::fromUtf8(bytes.mid(2)), country);
    if (!number)
        return 0;
    require(number->startsWith(u'+') && number->size() >= 8 && number->size() <= 16);
    require(std::all_of(number->begin() + 1, number->end(),
                        [](QChar c) { return c >= u'0' && c <= u'9'; }));
    require(number->at(1) != u'0');
    // It is the same wherever it is read again.
    require(skipnest::voice::internationalNumber(*number, QString()) == number);
    return 0;
}
