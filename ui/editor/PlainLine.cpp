// SPDX-License-Identifier: Apache-2.0
#include "ui/editor/PlainLine.h"

namespace skipnest::ui {
namespace {

bool turnsDirection(QChar c) {
    return (c >= QChar(0x202a) && c <= QChar(0x202e)) || (c >= QChar(0x2066) && c <= QChar(0x2069));
}

} // namespace

QString plainLine(const QString& name) {
    QString line = name;
    for (QChar& c : line)
        if (c.category() == QChar::Other_Control)
            c = u' ';
    line.removeIf(turnsDirection);
    return line.simplified();
}

QString shownPath(const QString& path, const QString& home) {
    const bool isHome = !home.isEmpty() && path.startsWith(home) &&
                        (path.size() == home.size() || path.at(home.size()) == u'/');
    return plainLine(isHome ? u'~' + path.sliced(home.size()) : path);
}

QString shownFolder(const QString& path, const QString& home) {
    const qsizetype slash = path.lastIndexOf(u'/');
    return shownPath(slash <= 0 ? QStringLiteral("/") : path.left(slash), home);
}

} // namespace skipnest::ui
