// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/shell/InstalledProgram.h"

#include <QDir>

namespace skipnest::linuxdesktop {
namespace {

QString execWord(const QString& word) {
    QString quoted;
    for (const QChar c : word) {
        // A backslash for the quotes, doubled since every value of the file is unescaped first.
        if (c == u'"' || c == u'`' || c == u'$')
            quoted += QStringLiteral("\\\\");
        else if (c == u'\\')
            quoted += QStringLiteral("\\\\\\");
        else if (c == u'%')
            quoted += u'%';
        else if (c == u'\n') {
            quoted += QStringLiteral("\\n");
            continue;
        }
        quoted += c;
    }
    return u'"' + quoted + u'"';
}

} // namespace

InstalledProgram installedProgram(const platform::Files& files, const platform::AppInfo& app) {
    const QString folder = app.bundlePath.left(app.bundlePath.lastIndexOf(u'/'));
    const auto isFile = [&](const QString& path) {
        return files.kind(path) == platform::FileKind::file;
    };
    if (const QString beside = folder + QStringLiteral("/skipnest"); isFile(beside)) {
        // Installed, the agent lies elsewhere: both in one folder is how they are built.
        return {beside, !isFile(folder + QStringLiteral("/skipnest-agent"))};
    }
    const QString inBin = QDir::cleanPath(folder + QStringLiteral("/../../bin/skipnest"));
    return {isFile(inBin) ? inBin : app.bundlePath, true};
}

QString execLine(const QStringList& words, const QString& fieldCode) {
    QStringList quoted;
    for (const QString& word : words)
        quoted.append(execWord(word));
    if (!fieldCode.isEmpty())
        quoted.append(fieldCode);
    return quoted.join(u' ');
}

QString shellLine(const QStringList& words) {
    QStringList quoted;
    for (QString word : words)
        quoted.append(u'\'' + word.replace(u'\'', QStringLiteral("'\\''")) + u'\'');
    return quoted.join(u' ');
}

} // namespace skipnest::linuxdesktop
