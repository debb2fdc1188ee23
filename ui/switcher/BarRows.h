// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/controls/KeyedListModel.h"

#include <QHash>
#include <QImage>
#include <QString>

namespace skipnest::ui {

// What the bar's three lists show. Rows are known by their place in the session: from one session
// to the next the same row changes its texts instead of being made anew.

struct WindowRow {
    int id = 0;
    QString name;  // in full, for assistive programs
    QString title; // what the card has room for
    QString icon;  // path of the application
    int tabs = -1; // -1 where tabs are not known
    bool isFocused = false;

    [[nodiscard]] int key() const { return id; }
    bool operator==(const WindowRow&) const = default;
};

class WindowRows final : public KeyedListModel<WindowRow> {
    Q_OBJECT
public:
    enum Role {
        nameRole = Qt::UserRole + 1,
        titleRole,
        iconRole,
        tabsRole,
        isFocusedRole,
        pictureRole
    };

    using KeyedListModel::KeyedListModel;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    // At the size it is shown in. A null image shows the icon again.
    void setPicture(int id, const QImage& picture);
    void dropPictures();

private:
    QHash<int, QImage> pictures_; // by id
};

struct TabRow {
    int id = 0;
    QString title;
    QString letter;

    [[nodiscard]] int key() const { return id; }
    bool operator==(const TabRow&) const = default;
};

class TabRows final : public KeyedListModel<TabRow> {
    Q_OBJECT
public:
    enum Role { titleRole = Qt::UserRole + 1, letterRole };

    using KeyedListModel::KeyedListModel;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
};

struct FoundRow {
    int id = 0;
    QString name;
    QString title;  // markup with what matches marked, see markedMatch()
    QString domain; // likewise
    QString window;
    QString letter;

    [[nodiscard]] int key() const { return id; }
    bool operator==(const FoundRow&) const = default;
};

class FoundRows final : public KeyedListModel<FoundRow> {
    Q_OBJECT
public:
    enum Role { nameRole = Qt::UserRole + 1, titleRole, domainRole, windowRole, letterRole };

    using KeyedListModel::KeyedListModel;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
};

} // namespace skipnest::ui
