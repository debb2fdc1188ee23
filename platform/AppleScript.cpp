// SPDX-License-Identifier: Apache-2.0
#include "platform/AppleScript.h"

#include <QStringBuilder>

namespace skipnest::platform {
namespace {

constexpr QStringView timeoutBegins = u"with timeout of 4 seconds\n";
constexpr QStringView timeoutEnds = u"\nend timeout";

} // namespace

QString escapedForAppleScript(QString text) {
    return text.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\""));
}

QString withAppleScriptTimeout(const QString& script) {
    return timeoutBegins % script % timeoutEnds;
}

QString withoutAppleScriptTimeout(const QString& script) {
    if (!script.startsWith(timeoutBegins) || !script.endsWith(timeoutEnds) ||
        script.size() < timeoutBegins.size() + timeoutEnds.size())
        return script;
    return script.sliced(timeoutBegins.size()).chopped(timeoutEnds.size());
}

} // namespace skipnest::platform
