// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Result.h"
#include "ui/controls/KeyedListModel.h"

#include <QByteArray>
#include <QString>
#include <qqmlintegration.h>

#include <optional>

namespace skipnest::app {
class AppDelegate;
}

namespace skipnest::model {
struct ImportReport;
}

namespace skipnest::ui {

struct ImportCandidateRow {
    QString path;
    QString name;   // of the file, as one line
    QString detail; // its date and folder

    [[nodiscard]] const QString& key() const { return path; }
    bool operator==(const ImportCandidateRow&) const = default;
};

// Export files that lie where exports are put.
class ImportCandidates : public KeyedListModel<ImportCandidateRow> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the import")
public:
    using Row = ImportCandidateRow;

    using KeyedListModel::KeyedListModel;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    enum Role { pathRole = Qt::UserRole, nameRole, detailRole };
};

// The import screen: a file is chosen, what it would change is shown, and then it is imported. What
// was shown is what is imported, whatever happens to the file in between.
class ImportModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the popover")
    Q_PROPERTY(skipnest::ui::ImportCandidates* candidates READ candidates CONSTANT)
    Q_PROPERTY(QString chosenPath READ chosenPath NOTIFY changed)
    Q_PROPERTY(QString chosenName READ chosenName NOTIFY changed)
    // What the chosen file would change; empty while there is nothing to import.
    Q_PROPERTY(QString preview READ preview NOTIFY changed)
    Q_PROPERTY(bool canImport READ canImport NOTIFY changed)
    // What came of it, and its kind for a MessageLine.
    Q_PROPERTY(QString message READ message NOTIFY changed)
    Q_PROPERTY(QString messageKind READ messageKind NOTIFY changed)
public:
    explicit ImportModel(app::AppDelegate& agent, QObject* parent = nullptr);

    // Looks for candidates again, with nothing chosen.
    void refresh();

    [[nodiscard]] ImportCandidates* candidates() { return &candidates_; }
    [[nodiscard]] const QString& chosenPath() const { return chosenPath_; }
    [[nodiscard]] QString chosenName() const;
    [[nodiscard]] const QString& preview() const { return preview_; }
    [[nodiscard]] bool canImport() const { return document_.has_value(); }
    [[nodiscard]] const QString& message() const { return message_; }
    [[nodiscard]] const QString& messageKind() const { return messageKind_; }

    // By what a person typed or dropped: a path (with "~" for the home folder), a "file:" address,
    // or a name in one of the folders that exports are put in, with or without ".json".
    Q_INVOKABLE void choose(const QString& file);
    Q_INVOKABLE void importChosen();

Q_SIGNALS:
    void changed();

private:
    [[nodiscard]] QString located(const QString& file) const;
    [[nodiscard]] static QString wording(const platform::Failure& failure);
    void say(const QString& kind, const QString& message);

    app::AppDelegate& agent_;
    ImportCandidates candidates_;
    QString chosenPath_;
    std::optional<QByteArray> document_;
    QString preview_;
    QString message_;
    QString messageKind_;
};

} // namespace skipnest::ui
