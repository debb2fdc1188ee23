// SPDX-License-Identifier: Apache-2.0
#include "ui/switcher/MarkedMatch.h"

#include <array>

namespace skipnest::ui {
namespace {

constexpr qsizetype inView = 40; // characters that surely fit in a row
constexpr qsizetype lead = 12;   // what is kept before a match further to the right

} // namespace

QString markedMatch(const QString& text, const QString& query) {
    qsizetype match = query.isEmpty() ? -1 : text.indexOf(query, 0, Qt::CaseInsensitive);
    QString markup;
    qsizetype done = 0;
    if (match >= 0 && match + query.size() > inView) {
        done = std::max<qsizetype>(0, match - lead);
        // Not in the middle of a character.
        if (done > 0 && text.at(done).isLowSurrogate())
            --done;
        if (done > 0)
            markup += QChar(0x2026);
    }
    while (match >= 0) {
        markup += text.sliced(done, match - done).toHtmlEscaped();
        markup += QStringLiteral("<b><u>") + text.sliced(match, query.size()).toHtmlEscaped() +
                  QStringLiteral("</u></b>");
        done = match + query.size();
        match = text.indexOf(query, done, Qt::CaseInsensitive);
    }
    return markup + text.sliced(done).toHtmlEscaped();
}

QString shortTitle(const QString& title, const QString& application) {
    constexpr std::array<char16_t, 3> dashes = {u'-', u'\x2013', u'\x2014'};
    if (application.isEmpty() || !title.endsWith(application, Qt::CaseInsensitive))
        return title;
    for (const char16_t dash : dashes) {
        const QString suffix = u' ' + QString(QChar(dash)) + u' ' + application;
        if (title.size() > suffix.size() && title.endsWith(suffix, Qt::CaseInsensitive))
            return title.chopped(suffix.size());
    }
    return title;
}

} // namespace skipnest::ui
