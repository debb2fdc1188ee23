// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/controls/KeyedListModel.h"
#include "ui/settings/SettingState.h"

#include <qqmlintegration.h>

namespace skipnest::ui {

// The settings of one section that the search field lets through.
class SettingRows final : public KeyedListModel<SettingState> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the settings")
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(bool isToCome READ isToCome CONSTANT)
    // What holds for all of them here; empty for nothing.
    Q_PROPERTY(QString note READ note CONSTANT)
    Q_PROPERTY(int count READ count NOTIFY countChanged)
public:
    SettingRows(const SettingSectionInfo& section, app::AppDelegate& agent, QObject* parent);

    [[nodiscard]] QString title() const;
    [[nodiscard]] bool isToCome() const;
    [[nodiscard]] QString note() const;
    [[nodiscard]] int count() const { return rowCount(); }
    // Reads the settings again. All of them match where the section's title does.
    void update(const QStringList& words);

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void countChanged();

private:
    enum Role {
        nameRole = Qt::UserRole,
        controlRole,
        titleRole,
        descriptionRole,
        defaultTextRole,
        noteRole,
        isOnRole,
        optionsRole,
        symbolsRole,
        currentRole,
        comboKeysRole,
        textRole,
        exampleRole,
        canResetRole,
    };

    const SettingSectionInfo& section_;
    app::AppDelegate& agent_;
};

} // namespace skipnest::ui
