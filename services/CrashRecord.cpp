// SPDX-License-Identifier: Apache-2.0
#include "services/CrashRecord.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

namespace skipnest::services {
namespace {

using namespace Qt::StringLiterals;
using platform::Failure;
using platform::Result;

constexpr qsizetype longestText = 256;
constexpr qsizetype longestStack = qsizetype{16} * 1024;

Failure malformed(const QString& what) {
    return {Failure::Kind::malformed, what};
}

bool matches(const QString& text, const QString& pattern) {
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(text).hasMatch();
}

QString CrashRecord::*memberNamed(const QString& key) {
    if (key == u"type")
        return &CrashRecord::type;
    if (key == u"name")
        return &CrashRecord::name;
    if (key == u"reason")
        return &CrashRecord::reason;
    if (key == u"stack")
        return &CrashRecord::stack;
    return nullptr;
}

bool isStack(const QString& text) {
    if (text.isEmpty())
        return true;
    const QRegularExpression frame(u"[A-Za-z0-9._+-]{1,64}\\+0x[0-9a-f]{1,16}"_s);
    const QRegularExpression whole(QRegularExpression::anchoredPattern(frame.pattern()));
    for (const QString& line : text.split(u'\n')) {
        if (!whole.match(line).hasMatch())
            return false;
    }
    return true;
}

} // namespace

Result<CrashRecord> decodeCrashRecord(const QByteArray& bytes) {
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    if (!document.isObject())
        return malformed(u"no JSON object"_s);
    const QJsonObject object = document.object();
    CrashRecord record;
    for (auto member = object.begin(); member != object.end(); ++member) {
        QString CrashRecord::*const field = memberNamed(member.key());
        if (!field || !member->isString())
            return malformed(u"a member that no record has"_s);
        record.*field = member->toString();
    }
    if (record.name.size() > longestText || record.reason.size() > longestText ||
        record.stack.size() > longestStack)
        return malformed(u"a text that is too long"_s);
    const bool isSignal = record.type == u"signal";
    if (!isSignal && record.type != u"exception")
        return malformed(u"neither a signal nor an exception"_s);
    // Of a C++ type, with its template arguments, or of a class in another language.
    const QString names = isSignal ? u"SIG[A-Z]{2,8}"_s : u"[A-Za-z0-9_:<>,*&()\\[\\]{}# '~-]+"_s;
    if (!matches(record.name, names))
        return malformed(u"no name of a signal or a type"_s);
    if (!matches(record.reason, isSignal ? QString() : u"[A-Za-z0-9_: ]*"_s))
        return malformed(u"a reason that is no kind of exception"_s);
    if (!isStack(record.stack))
        return malformed(u"a stack that is not made of modules and offsets"_s);
    return record;
}

} // namespace skipnest::services
