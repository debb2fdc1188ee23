// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ShortcutItem.h"
#include "platform/Observers.h"
#include "ui/list/ListBanner.h"
#include "ui/list/MissingTargets.h"
#include "ui/list/RemovedShortcuts.h"
#include "ui/list/ShortcutRows.h"

#include <QObject>
#include <qqmlintegration.h>

#include <unordered_map>
#include <vector>

namespace skipnest::app {
class AppDelegate;
}

namespace skipnest::ui {

// The popover's home: the shortcuts with what is wrong with each, a filter, and what can be done
// with a row. Rows are known by the text of their record's id.
//
// Rows are made anew when something they show changed; showing the popover only asks for what may
// have changed behind our back.
class ShortcutListScreenModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the popover")
    Q_PROPERTY(QAbstractItemModel* rows READ rows CONSTANT)
    Q_PROPERTY(skipnest::ui::ListBanner* banner READ banner CONSTANT)
    Q_PROPERTY(QString filter READ filter WRITE setFilter NOTIFY filterChanged)
    // There is no shortcut at all; and there are some, but the filter hides them all.
    Q_PROPERTY(bool empty READ isEmpty NOTIFY contentChanged)
    Q_PROPERTY(bool nothingFound READ isNothingFound NOTIFY contentChanged)
    // "Removed “Notes”" for as long as it can be undone, else empty.
    Q_PROPERTY(QString undoText READ undoText NOTIFY undoChanged)
public:
    explicit ShortcutListScreenModel(app::AppDelegate& agent, QObject* parent = nullptr);

    [[nodiscard]] ShortcutRows* rows() { return &rows_; }
    [[nodiscard]] ListBanner* banner() { return &banner_; }
    [[nodiscard]] const QString& filter() const { return filter_; }
    void setFilter(const QString& filter);
    [[nodiscard]] bool isEmpty() const { return all_.empty(); }
    [[nodiscard]] bool isNothingFound() const { return !all_.empty() && rows_.rows().empty(); }
    [[nodiscard]] QString undoText() const;

    // The list has come into view.
    Q_INVOKABLE void refresh();
    // False where there is nothing to jump to: the target is gone, or waits to be confirmed.
    Q_INVOKABLE bool jump(const QString& id);
    Q_INVOKABLE void remove(const QString& id);
    Q_INVOKABLE void undo();
    Q_INVOKABLE void confirm(const QString& id);
    // One row up (-1) or down (+1); nothing while the list is filtered.
    Q_INVOKABLE void moveBy(const QString& id, int rows);
    // While a row is dragged it is only shown at its new place; drop() makes it so.
    Q_INVOKABLE void drag(int from, int to);
    Q_INVOKABLE void drop(const QString& id);
    [[nodiscard]] Q_INVOKABLE int rowOf(const QString& id) const;

Q_SIGNALS:
    void filterChanged();
    void contentChanged();
    void undoChanged();

private:
    struct Note {
        QString text;
        QString kind;
    };
    struct Shown {
        ShortcutRow row;
        QString searched; // folded
    };
    using Refusals = std::unordered_map<model::RecordId, QString>;
    using Sharers = std::unordered_map<model::KeyCombo, std::vector<const model::ShortcutItem*>>;

    [[nodiscard]] Refusals refusals() const;
    void takeRefusals();
    void rebuild();
    void applyFilter();
    [[nodiscard]] ShortcutRow rowFor(const model::ShortcutItem& item, const Sharers& sharers) const;
    [[nodiscard]] Note noteFor(const model::ShortcutItem& item, const Sharers& sharers) const;
    [[nodiscard]] QString placeOf(const model::ShortcutItem& item) const;

    app::AppDelegate& agent_;
    ShortcutRows rows_;
    ListBanner banner_;
    MissingTargets missing_;
    RemovedShortcuts removed_;
    Refusals refusals_; // what to say of the records whose keys were refused
    std::vector<Shown> all_;
    QString filter_;
    platform::Observation layoutChanges_;
};

} // namespace skipnest::ui
