// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "app/AppDelegate.h"
#include "platform/sim/SimDesktop.h"
#include "ui/QuickPanels.h"

#include <QImage>
#include <QString>

#include <memory>

class QQuickItem;
class QQuickView;

namespace skipnest::test {

// The real views over the real agent, on the simulated desktop: tests press keys and look at items
// by their objectName. Nothing is shown on a screen (Qt's offscreen platform draws into memory),
// and time passes only on the desktop's clock, but for animations.
class UiStage {
public:
    UiStage();
    ~UiStage();

    // Nothing runs before this: files, applications and settings can be put in place first. Without
    // the check of what a person needs at a first start, onboarding stays away.
    using Setup = app::AppDelegate::Options::Setup;
    void launch(Setup setup = Setup::countsAsDone);

    [[nodiscard]] sim::SimDesktop& desk() { return desk_; }
    [[nodiscard]] app::AppDelegate& agent() { return *agent_; }
    [[nodiscard]] model::ShortcutListViewModel& list() { return agent_->viewModel(); }
    [[nodiscard]] ui::QuickPanels& panels() { return panels_; }

    // The popover on a screen, painted.
    void show(const platform::PopoverRoute& route);
    [[nodiscard]] QQuickView& popover();
    // While it is shown.
    [[nodiscard]] QQuickView& onboarding();
    // What it looks like now.
    [[nodiscard]] QImage picture(QQuickView& view);

    // The visible item with this objectName anywhere in the view; aborts where there is none. Here
    // and below the view is the popover where none is named.
    [[nodiscard]] QQuickItem& item(const QString& objectName);
    [[nodiscard]] QQuickItem& item(QQuickView& view, const QString& objectName);
    [[nodiscard]] bool hasItem(const QString& objectName);
    [[nodiscard]] bool hasItem(QQuickView& view, const QString& objectName);
    // Into whatever has the keyboard in the view.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void press(QQuickView& view, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString& text);
    void type(QQuickView& view, const QString& text);
    // In the middle of the item.
    void click(QQuickItem& item);
    // Lets Qt and the desktop carry out what is pending; no time passes on the desk.
    void settle();

private:
    sim::SimDesktop desk_;
    ui::QuickPanels panels_;
    std::unique_ptr<app::AppDelegate> agent_;
};

} // namespace skipnest::test
