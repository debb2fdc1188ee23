// SPDX-License-Identifier: Apache-2.0
#include "switcher/SwitcherSearch.h"

#include <QList>

#include <algorithm>
#include <utility>

namespace skipnest::switcher {

namespace {

void add(std::vector<SearchHit>& hits, SwitcherModel::ResultVM row, Target target) {
    row.id = static_cast<int>(hits.size());
    hits.push_back({std::move(row), std::move(target)});
}

} // namespace

QString chipLetter(const QString& domain, const QString& title) {
    const QString site = domain.startsWith(u"www.") ? domain.mid(4) : domain;
    for (const QString& text : {site, title})
        for (const char32_t character : text.toUcs4())
            if (QChar::isLetterOrNumber(character))
                return QString::fromUcs4(&character, 1).toUpper();
    return QStringLiteral("•");
}

std::vector<SearchHit> search(const std::vector<Win>& wins, SessionKind kind,
                              const QString& query) {
    const QString wanted = query.toLower();
    std::vector<SearchHit> hits;
    for (std::size_t i = 0; i < wins.size(); ++i) {
        const Win& win = wins[i];
        if (kind == SessionKind::windows) {
            if (win.title.toLower().contains(wanted))
                add(hits, {0, win.title, {}, {}, chipLetter({}, win.title)}, WindowTarget{i});
            continue;
        }
        for (const TabRef& tab : win.tabs)
            if (tab.title.toLower().contains(wanted) || tab.domain.toLower().contains(wanted))
                add(hits, {0, tab.title, tab.domain, win.title, chipLetter(tab.domain, tab.title)},
                    tab);
    }
    return hits;
}

} // namespace skipnest::switcher
