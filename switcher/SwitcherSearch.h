// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "switcher/SwitcherModel.h"
#include "switcher/Win.h"

#include <QString>

#include <cstddef>
#include <variant>
#include <vector>

namespace skipnest::switcher {

// What a pick leads to: a window, by its index in the session, or a tab.
struct WindowTarget {
    std::size_t window = 0;
};
using Target = std::variant<WindowTarget, TabRef>;

struct SearchHit {
    SwitcherModel::ResultVM row;
    Target target;
};

enum class SessionKind { windows, browser };

// The tabs of a browser whose title or domain has the query, or the windows whose title has it, in
// the order of the bar, in whatever case. An empty query finds everything.
[[nodiscard]] std::vector<SearchHit> search(const std::vector<Win>& wins, SessionKind kind,
                                            const QString& query);

// What stands on a tab's chip: the first letter or digit of its site, else of its title.
[[nodiscard]] QString chipLetter(const QString& domain, const QString& title);

} // namespace skipnest::switcher
