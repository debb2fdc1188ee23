// SPDX-License-Identifier: Apache-2.0
#include "ui/switcher/PointerRest.h"

namespace skipnest::ui {
namespace {

// A hand on the mouse is never quite still.
constexpr double slack = 4;

} // namespace

void PointerRest::rest() {
    restsAt_.reset();
    last_.reset();
    isMoving_ = false;
}

bool PointerRest::moved(const QPointF& position) {
    if (!restsAt_)
        restsAt_ = position;
    if (!isMoving_)
        isMoving_ = (position - *restsAt_).manhattanLength() >= slack;
    // What scrolls below it reports the pointer where it has been all the time.
    const bool isElsewhere = last_ != position;
    last_ = position;
    return isMoving_ && isElsewhere;
}

} // namespace skipnest::ui
