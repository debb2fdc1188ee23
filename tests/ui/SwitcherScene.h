// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "switcher/SwitcherModel.h"
#include "tests/ui/UiStage.h"

#include <QRect>

class QQuickView;

namespace skipnest::ui {
class SwitcherBarModel;
}

namespace skipnest::test {

// The switcher's bar over a model that is filled by hand.
class SwitcherScene {
public:
    using Content = switcher::SwitcherModel::Content;

    // The stage must have been launched, and outlive the scene.
    explicit SwitcherScene(UiStage& stage);

    [[nodiscard]] switcher::SwitcherModel& model() { return model_; }
    [[nodiscard]] ui::SwitcherBarModel& bar();
    [[nodiscard]] QQuickView& view();

    void show(const Content& content);
    void set(const Content& content);
    void hide();
    // The pointer goes there in the bar, pressing nothing.
    void movePointer(const QPointF& to);

    static constexpr QRect area{0, 0, 1600, 1000};

private:
    UiStage& stage_;
    switcher::SwitcherModel model_;
};

// Made-up sessions. Windows of an application whose icon is `icon`, the first of them in front.
[[nodiscard]] SwitcherScene::Content windowSession(int windows,
                                                   const QString& icon = QStringLiteral("/a.app"));
// A browser with this many windows of a few tabs each.
[[nodiscard]] SwitcherScene::Content browserSession(int windows);
// The same at the tabs of its first window, which has this many.
[[nodiscard]] SwitcherScene::Content tabSession(int tabs);
[[nodiscard]] SwitcherScene::Content searchSession(const QString& query);
// Something that looks like a window's content from afar; the same for the same number.
[[nodiscard]] QImage windowPicture(int number);

} // namespace skipnest::test
