// SPDX-License-Identifier: Apache-2.0
#include "switcher/SwitcherModel.h"

#include <utility>

namespace skipnest::switcher {

void SwitcherModel::setContent(Content content) {
    if (content == content_)
        return;
    content_ = std::move(content);
    Q_EMIT changed();
}

void SwitcherModel::setImage(int window, const QImage& image) {
    if (window < 0 || window >= static_cast<int>(content_.windows.size()))
        return;
    content_.windows[static_cast<std::size_t>(window)].image = image;
    Q_EMIT imageChanged(window);
}

} // namespace skipnest::switcher
