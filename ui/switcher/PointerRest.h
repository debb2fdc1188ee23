// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointF>

#include <optional>

namespace skipnest::ui {

// Tells a pointer that the person moves from one under which something appeared or scrolled: only
// the first may select.
class PointerRest {
public:
    // Wherever the pointer is now, it rests until it has left that place clearly.
    void rest();
    // Whether the person moves the pointer; each position on the screen in turn.
    [[nodiscard]] bool moved(const QPointF& position);

private:
    std::optional<QPointF> restsAt_;
    std::optional<QPointF> last_;
    bool isMoving_ = false;
};

} // namespace skipnest::ui
