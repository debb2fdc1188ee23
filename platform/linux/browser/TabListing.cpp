// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/browser/TabListing.h"

#include <QJsonArray>

namespace skipnest::linuxdesktop {
namespace {

constexpr QChar fieldSeparator(1);

// A title may hold anything, the separators too.
QString plain(QString text) {
    for (QChar& c : text) {
        if (c < u' ' || c == QChar(0x7F))
            c = u' ';
    }
    return text;
}

} // namespace

TabListing tabListing(const QJsonObject& answer, std::int64_t firstWindow) {
    TabListing listing;
    listing.focusedAt = answer.value(u"focusedAt").toDouble();
    const QJsonArray windows = answer.value(u"windows").toArray();
    listing.windows = windows.size();
    for (qsizetype w = 0; w < windows.size(); ++w) {
        const QString window = QString::number(firstWindow + w);
        const QJsonArray tabs = windows[w].toArray();
        for (qsizetype t = 0; t < tabs.size(); ++t) {
            const QJsonArray tab = tabs[t].toArray();
            if (tab.size() != 3 || !tab[0].isString() || !tab[2].isString())
                continue;
            listing.lines += window + fieldSeparator + QString::number(t + 1) + fieldSeparator +
                             plain(tab[0].toString()) + fieldSeparator +
                             (tab[1].toInt() == 1 ? u'1' : u'0') + fieldSeparator +
                             plain(tab[2].toString()) + u'\n';
        }
    }
    return listing;
}

} // namespace skipnest::linuxdesktop
