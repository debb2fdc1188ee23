// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Result.h"

#include <QByteArray>
#include <QString>

namespace skipnest::services {

// How an earlier run ended; see platform::CrashCapture.
struct CrashRecord {
    QString type; // "signal" or "exception"
    QString name;
    QString reason; // exceptions only
    QString stack;  // "MODULE+0xOFFSET" a line

    bool operator==(const CrashRecord&) const = default;
};

// A record may have been written by a program that was no longer itself, and it is sent. So this
// takes exactly what a record consists of: no other member, a name and a reason of at most 256
// characters that no path is written with, and a stack of at most 16 KiB of nothing but frames.
// Fails otherwise; the detail says what is wrong and repeats nothing of it.
[[nodiscard]] platform::Result<CrashRecord> decodeCrashRecord(const QByteArray& bytes);

} // namespace skipnest::services
