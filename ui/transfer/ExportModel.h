// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Result.h"
#include "ui/controls/KeyedListModel.h"

#include <QString>
#include <qqmlintegration.h>

namespace skipnest::app {
class AppDelegate;
}

namespace skipnest::ui {

struct ExportDestinationRow {
    QString folder; // a path
    QString name;   // the folder's own name
    QString detail; // where it is, and whether an export of today is there already

    [[nodiscard]] const QString& key() const { return folder; }
    bool operator==(const ExportDestinationRow&) const = default;
};

// Where an export can go, in the order of model::ExportDestination.
class ExportDestinations : public KeyedListModel<ExportDestinationRow> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the export")
public:
    using Row = ExportDestinationRow;

    using KeyedListModel::KeyedListModel;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    enum Role { nameRole = Qt::UserRole, detailRole };
};

// The export screen: a folder is picked and the file is written there.
class ExportModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the popover")
    Q_PROPERTY(skipnest::ui::ExportDestinations* destinations READ destinations CONSTANT)
    // The file that will be written.
    Q_PROPERTY(QString fileName READ fileName NOTIFY changed)
    Q_PROPERTY(QString contents READ contents NOTIFY changed)
    // Of the file written last; empty where none was.
    Q_PROPERTY(QString path READ path NOTIFY changed)
    Q_PROPERTY(QString message READ message NOTIFY changed)
public:
    explicit ExportModel(app::AppDelegate& agent, QObject* parent = nullptr);

    // As the screen is opened: today's name, and nothing written yet.
    void reset();

    [[nodiscard]] ExportDestinations* destinations() { return &destinations_; }
    [[nodiscard]] const QString& fileName() const { return fileName_; }
    // What goes into the file: "12 shortcuts and all settings".
    [[nodiscard]] QString contents() const;
    [[nodiscard]] const QString& path() const { return path_; }
    [[nodiscard]] const QString& message() const { return message_; }

    // To the destination in this row.
    Q_INVOKABLE void exportTo(int destination);
    Q_INVOKABLE void copyPath() const;

Q_SIGNALS:
    void changed();

private:
    void listDestinations();

    app::AppDelegate& agent_;
    ExportDestinations destinations_;
    QString fileName_;
    QString path_;
    QString message_;
};

} // namespace skipnest::ui
