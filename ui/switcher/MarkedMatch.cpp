// SPDX-License-Identifier: Apache-2.0
#include "ui/switcher/MarkedMatch.h"

#include <algorithm>
#include <array>

namespace skipnest::ui {
namespace {

constexpr qsizetype inView = 40;   // characters that surely fit in a row
constexpr qsizetype lead = 12;     // what is kept before a match further to the right
constexpr qsizetype longest = 240; // characters that no row is wide enough for

// Where the part in view begins, for a match there.
qsizetype startOf(const QString& text, qsizetype match, qsizetype length) {
    if (match < 0 || match + length <= inView)
        return 0;
    qsizetype start = std::max<qsizetype>(0, match - lead);
    // Not in the middle of a character.
    if (start > 0 && text.at(start).isLowSurrogate())
        --start;
    while (start < match && text.at(start).isSpace())
        ++start;
    return start;
}

} // namespace

QString markedMatch(const QString& text, const QString& query) {
    const auto matchIn = [&query](const QString& in, qsizetype from) {
        return query.isEmpty() ? -1 : in.indexOf(query, from, Qt::CaseInsensitive);
    };
    const qsizetype start = startOf(text, matchIn(text, 0), query.size());
    const QString seen = text.mid(start, longest);
    QString markup = start > 0 ? QString(QChar(0x2026)) : QString();
    qsizetype done = 0;
    for (qsizetype match = matchIn(seen, 0); match >= 0; match = matchIn(seen, done)) {
        markup += seen.sliced(done, match - done).toHtmlEscaped();
        markup += QStringLiteral("<b><u>") + seen.sliced(match, query.size()).toHtmlEscaped() +
                  QStringLiteral("</u></b>");
        done = match + query.size();
    }
    return markup + seen.sliced(done).toHtmlEscaped();
}

QString boundedTitle(const QString& title) {
    if (title.size() <= longest)
        return title;
    return title.first(longest / 2) + QChar(0x2026) + title.last(longest / 2);
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
