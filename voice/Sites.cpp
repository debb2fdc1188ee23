// SPDX-License-Identifier: Apache-2.0
#include "voice/Sites.h"

#include <QHash>
#include <QStringBuilder>

namespace skipnest::voice {
namespace {

struct Row {
    QStringView key;
    QStringView host;
    QStringView path;
    QStringView searchHost; // as the home page's where empty
    QStringView search;     // empty: the site has none
};

constexpr Row rows[] = {
    {u"youtube", u"www.youtube.com", u"/", {}, u"/results?search_query=%q"},
    {u"google", u"www.google.com", u"/", {}, u"/search?q=%q"},
    {u"instagram", u"www.instagram.com", u"/", {}, {}},
    {u"amazon", u"www.amazon.de", u"/", {}, u"/s?k=%q"},
    {u"github", u"github.com", u"/", {}, u"/search?q=%q"},
    {u"maps", u"www.google.com", u"/maps", {}, u"/maps/search/%q"},
    {u"wikipedia", u"www.wikipedia.org", u"/", u"en.wikipedia.org", u"/w/index.php?search=%q"},
    {u"reddit", u"www.reddit.com", u"/", {}, u"/search/?q=%q"},
    {u"gmail", u"mail.google.com", u"/", {}, {}},
    {u"chatgpt", u"chatgpt.com", u"/", {}, {}},
    {u"linkedin", u"www.linkedin.com", u"/", {}, {}},
    {u"twitter", u"x.com", u"/", {}, {}},
    {u"x", u"x.com", u"/", {}, {}},
};
static_assert(std::size(rows) == 13);

using Table = QHash<QStringView, VoiceCommand::Site>;

Table makeTable() {
    const auto address = [](QStringView host, QStringView path) {
        return QString(u"https://" % host % path);
    };
    Table table;
    for (const Row& row : rows) {
        VoiceCommand::Site site{QUrl(address(row.host, row.path)), {}};
        if (!row.search.isEmpty())
            site.search = address(row.searchHost.isEmpty() ? row.host : row.searchHost, row.search);
        table.insert(row.key, site);
    }
    return table;
}

} // namespace

std::optional<VoiceCommand::Site> VoiceCommand::site(const QString& named) {
    static const Table table = makeTable();
    const auto found = table.constFind(QStringView(named));
    return found == table.cend() ? std::nullopt : std::optional(*found);
}

QUrl searchAddress(const QString& searchTemplate, const QString& query) {
    QString address = searchTemplate;
    address.replace(QStringLiteral("%q"), QString::fromLatin1(QUrl::toPercentEncoding(query)));
    return QUrl(address);
}

} // namespace skipnest::voice
