// SPDX-License-Identifier: Apache-2.0
#include "model/Timestamp.h"

#include <QRegularExpression>

namespace skipnest::model {

std::optional<QDateTime> timestampFromText(const QString& text) {
    // \z and not $, which also matches before a line break at the end.
    static const QRegularExpression form(
        QStringLiteral("\\A(\\d{4})-(\\d{2})-(\\d{2})T(\\d{2}):(\\d{2}):(\\d{2})"
                       "(?:\\.(\\d{1,9}))?(?:Z|([+-])(\\d{2}):(\\d{2}))\\z"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const auto number = [&match](int group) { return match.capturedView(group).toInt(); };

    const QDate date(number(1), number(2), number(3));
    const int milliseconds = match.captured(7).leftJustified(3, u'0', true).toInt();
    const QTime time(number(4), number(5), number(6), milliseconds);
    if (!date.isValid() || !time.isValid())
        return std::nullopt;

    int offset = 0;
    if (match.hasCaptured(8)) {
        const int hours = number(9);
        const int minutes = number(10);
        if (hours > 23 || minutes > 59)
            return std::nullopt;
        offset = (hours * 60 + minutes) * 60 * (match.capturedView(8) == u"-" ? -1 : 1);
    }
    const QDateTime utc = QDateTime(date, time, Qt::UTC).addSecs(-offset);
    if (utc.date().year() < 1 || utc.date().year() > 9999)
        return std::nullopt;
    return utc;
}

QString timestampText(const QDateTime& time) {
    Q_ASSERT(time.isValid());
    // A file that does not decode would cost the whole list; a date at worst sorts wrongly.
    const QDateTime utc =
        time.isValid() ? time.toUTC() : QDateTime(QDate(1970, 1, 1), QTime(0, 0), Qt::UTC);
    return utc.toString(utc.time().msec() == 0 ? Qt::ISODate : Qt::ISODateWithMs);
}

} // namespace skipnest::model
