// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Scheduler.h"
#include "ui/switcher/SwitcherBarModel.h"

#include <memory>

class QQmlEngine;
class QQuickView;

namespace skipnest::ui {

// The bar's window: built once, hidden, and never asking for the keyboard. The window manager does
// not manage it, so it comes up where and when we say, and no other window loses the focus.
class SwitcherBarWindow final : public QObject {
    Q_OBJECT
public:
    // All of them must outlive this object.
    SwitcherBarWindow(QQmlEngine& engine, switcher::SwitcherModel& model,
                      platform::Executor& executor, platform::Scheduler& scheduler);
    ~SwitcherBarWindow() override;

    void show(const QRect& area);
    // Deaf and blind at once, off the screen a moment later.
    void hide();

    [[nodiscard]] QQuickView* view() const { return view_.get(); }
    [[nodiscard]] SwitcherBarModel& model() { return model_; }

private:
    void place();

    SwitcherBarModel model_;
    std::unique_ptr<QQuickView> view_;
    platform::Scheduler& scheduler_;
    platform::Timer leaving_;
};

} // namespace skipnest::ui
