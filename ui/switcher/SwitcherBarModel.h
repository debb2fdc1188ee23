// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "switcher/SwitcherModel.h"
#include "ui/switcher/BarLayout.h"
#include "ui/switcher/BarRows.h"
#include "ui/switcher/PointerRest.h"
#include "ui/switcher/PreviewScaler.h"

#include <QObject>
#include <QPointF>
#include <QRect>
#include <qqmlintegration.h>

namespace skipnest::ui {

// What the switcher's bar looks like, from the model that the switcher writes. While the bar is
// hidden it takes nothing over: the rows of the last session wait to be filled again, without their
// pictures.
class SwitcherBarModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the bar")
    Q_PROPERTY(QAbstractItemModel* windows READ windows CONSTANT)
    Q_PROPERTY(QAbstractItemModel* tabs READ tabs CONSTANT)
    Q_PROPERTY(QAbstractItemModel* results READ results CONSTANT)
    Q_PROPERTY(QString level READ level NOTIFY changed) // "windows", "tabs" or "search"
    Q_PROPERTY(bool browser READ isBrowser NOTIFY changed)
    Q_PROPERTY(bool pinned READ isPinned NOTIFY changed)
    Q_PROPERTY(QString appName READ appName NOTIFY changed)
    Q_PROPERTY(QString appIcon READ appIcon NOTIFY changed)
    // Of the window whose tabs are shown.
    Q_PROPERTY(QString drillName READ drillName NOTIFY changed)
    // The window that is chosen, or whose tabs are shown; a card has less room for its title.
    Q_PROPERTY(QString headline READ headline NOTIFY changed)
    Q_PROPERTY(QString query READ query NOTIFY changed)
    Q_PROPERTY(bool nothingFound READ isNothingFound NOTIFY changed)
    Q_PROPERTY(int windowCount READ windowCount NOTIFY changed)
    Q_PROPERTY(int tabCount READ tabCount NOTIFY changed)
    Q_PROPERTY(int resultCount READ resultCount NOTIFY changed)
    Q_PROPERTY(int selectedWindow READ selectedWindow NOTIFY changed)
    Q_PROPERTY(int selectedTab READ selectedTab NOTIFY changed)
    Q_PROPERTY(int selectedResult READ selectedResult NOTIFY changed)
    // False for what is there at once when the bar comes up; later changes may be seen moving.
    Q_PROPERTY(bool settled READ isSettled NOTIFY changed)
    Q_PROPERTY(int cardWidth READ cardWidth NOTIFY changed)
    Q_PROPERTY(int cardHeight READ cardHeight NOTIFY changed)
    Q_PROPERTY(int cardColumns READ cardColumns NOTIFY changed)
    Q_PROPERTY(int chipWidth READ chipWidth NOTIFY changed)
    Q_PROPERTY(int chipColumns READ chipColumns NOTIFY changed)
public:
    using Level = switcher::SwitcherModel::Level;

    // Both must outlive this object.
    SwitcherBarModel(switcher::SwitcherModel& model, platform::Executor& executor,
                     QObject* parent = nullptr);

    // The bar comes up in the middle of this area.
    void show(const QRect& area, double devicePixelRatio);
    void hide();
    // Where the bar is now.
    [[nodiscard]] const QRect& frame() const { return frame_; }

    [[nodiscard]] WindowRows* windows() { return &windows_; }
    [[nodiscard]] TabRows* tabs() { return &tabs_; }
    [[nodiscard]] FoundRows* results() { return &results_; }
    [[nodiscard]] QString level() const;
    [[nodiscard]] bool isBrowser() const { return content().isBrowser; }
    [[nodiscard]] bool isPinned() const { return content().isPinned; }
    [[nodiscard]] const QString& appName() const { return appName_; }
    [[nodiscard]] const QString& appIcon() const { return content().appIcon; }
    [[nodiscard]] const QString& drillName() const { return drillName_; }
    [[nodiscard]] QString headline() const;
    [[nodiscard]] const QString& query() const { return content().query; }
    [[nodiscard]] bool isNothingFound() const;
    [[nodiscard]] int windowCount() const { return windows_.rowCount(); }
    [[nodiscard]] int tabCount() const { return content().totalTabs; }
    [[nodiscard]] int resultCount() const { return results_.rowCount(); }
    [[nodiscard]] int selectedWindow() const { return content().selWin; }
    [[nodiscard]] int selectedTab() const { return content().selTab; }
    [[nodiscard]] int selectedResult() const { return content().selResult; }
    [[nodiscard]] bool isSettled() const { return isSettled_; }
    [[nodiscard]] int cardWidth() const { return layout_.cardWidth; }
    [[nodiscard]] int cardHeight() const { return layout_.cardHeight; }
    [[nodiscard]] int cardColumns() const { return layout_.cardColumns; }
    [[nodiscard]] int chipWidth() const { return layout_.chipWidth; }
    [[nodiscard]] int chipColumns() const { return layout_.chipColumns; }

    Q_INVOKABLE void pickWindow(int row);
    Q_INVOKABLE void pickTab(int row);
    Q_INVOKABLE void pickResult(int row);
    // The pointer is there on the screen; true where the person moved it there.
    Q_INVOKABLE bool pointerMoved(const QPointF& position);
    Q_INVOKABLE void hoverWindow(int row);

Q_SIGNALS:
    void changed();
    void frameChanged();
    // The bar is about to come into view.
    void shown();

private:
    [[nodiscard]] const switcher::SwitcherModel::Content& content() const {
        return model_.content();
    }
    void takeContent();
    void takeLayout();
    void takeRows();
    void scalePicture(int window);

    switcher::SwitcherModel& model_;
    WindowRows windows_;
    TabRows tabs_;
    FoundRows results_;
    PreviewScaler scaler_;
    PointerRest pointer_;
    QString appName_;
    QString drillName_;
    BarLayout layout_;
    QRect area_;
    QRect frame_;
    double devicePixelRatio_ = 1;
    int lastSelected_ = -1;
    bool isShown_ = false;
    bool isSettled_ = false;
    bool isHovering_ = false;
};

} // namespace skipnest::ui
