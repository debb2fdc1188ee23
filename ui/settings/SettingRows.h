// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/controls/RowModel.h"
#include "ui/settings/SettingState.h"

#include <qqmlintegration.h>

namespace skipnest::ui {

// The settings of one section that the search field lets through.
class SettingRows final : public RowModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the settings")
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(bool isToCome READ isToCome CONSTANT)
    Q_PROPERTY(int count READ count NOTIFY countChanged)
public:
    SettingRows(const SettingSectionInfo& section, app::AppDelegate& agent, QObject* parent);

    [[nodiscard]] QString title() const;
    [[nodiscard]] bool isToCome() const;
    [[nodiscard]] int count() const { return static_cast<int>(rows_.size()); }
    // Reads the settings again. All of them match where the section's title does.
    void update(const QStringList& words);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
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
        canResetRole,
    };

    const SettingSectionInfo& section_;
    app::AppDelegate& agent_;
    std::vector<SettingState> rows_;
};

} // namespace skipnest::ui
