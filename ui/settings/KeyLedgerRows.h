// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hotkeys/KeyLedger.h"
#include "ui/controls/KeyedListModel.h"

#include <QStringList>
#include <qqmlintegration.h>

namespace skipnest::app {
class AppDelegate;
}

namespace skipnest::ui {

struct KeyLedgerRow {
    model::KeyCombo combo;
    QString group;  // its title
    QString holder; // "Skipnest: Notes"
    QStringList keys;
    bool works = true; // pressing it does what `holder` says

    [[nodiscard]] const model::KeyCombo& key() const { return combo; }
    bool operator==(const KeyLedgerRow&) const = default;
};

// Every combo and who has it, in groups: ours, those refused to us, the desktop's.
class KeyLedgerRows final : public KeyedListModel<KeyLedgerRow> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the settings")
    Q_PROPERTY(QString filter READ filter WRITE setFilter NOTIFY filterChanged)
    // "12 ours · 1 refused · 34 of the desktop", of all and not only of those shown.
    Q_PROPERTY(QString summary READ summary NOTIFY summaryChanged)
    Q_PROPERTY(bool hasRefused READ hasRefused NOTIFY summaryChanged)
public:
    using Row = KeyLedgerRow;

    explicit KeyLedgerRows(app::AppDelegate& agent, QObject* parent = nullptr);

    [[nodiscard]] const QString& filter() const { return filter_; }
    // Words that must all stand in a row: "ctrl notes".
    void setFilter(const QString& filter);
    [[nodiscard]] const QString& summary() const { return summary_; }
    [[nodiscard]] bool hasRefused() const { return hasRefused_; }
    void update();

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void filterChanged();
    void summaryChanged();

private:
    enum Role { groupRole = Qt::UserRole, holderRole, keysRole, worksRole };
    void summarize();

    app::AppDelegate& agent_;
    QString filter_;
    QString summary_;
    bool hasRefused_ = false;
};

// Who holds a combo, in one line.
[[nodiscard]] QString holderText(const hotkeys::KeyLedger::Row& row);

} // namespace skipnest::ui
