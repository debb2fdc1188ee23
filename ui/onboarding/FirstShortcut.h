// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/RecordId.h"
#include "platform/FileIndex.h"
#include "ui/editor/RecorderFace.h"
#include "ui/onboarding/TargetChoices.h"
#include "ui/search/TargetSearchService.h"

#include <QObject>
#include <QStringList>
#include <qqmlintegration.h>

#include <optional>
#include <vector>

namespace skipnest::ui {

// The step that makes a shortcut: a target from what the person likely uses or from a search by
// name, and a combo, for which a free one is proposed. Saving keeps the step open for another one.
class FirstShortcut final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the onboarding")
    Q_PROPERTY(skipnest::ui::TargetChoices* choices READ choices CONSTANT)
    Q_PROPERTY(skipnest::ui::RecorderFace* recorder READ recorder CONSTANT)
    Q_PROPERTY(QString searchText READ searchText NOTIFY searchChanged)
    Q_PROPERTY(bool isSearching READ isSearching NOTIFY searchChanged)
    // Of the target chosen; empty where none is.
    Q_PROPERTY(QString targetPath READ targetPath NOTIFY targetChanged)
    Q_PROPERTY(QString targetName READ targetName NOTIFY targetChanged)
    Q_PROPERTY(QString problem READ problem NOTIFY targetChanged)
    // Of the shortcut saved last; empty where none was.
    Q_PROPERTY(QString savedName READ savedName NOTIFY saved)
    Q_PROPERTY(QStringList savedKeys READ savedKeys NOTIFY saved)
    Q_PROPERTY(QString savedCombo READ savedCombo NOTIFY saved)
public:
    explicit FirstShortcut(app::AppDelegate& agent, QObject* parent = nullptr);

    // Looks again at what runs and what opens things by default.
    void start();
    // Ends recordings and searches; what was chosen stays.
    void pause();

    [[nodiscard]] TargetChoices* choices() { return &choices_; }
    [[nodiscard]] RecorderFace* recorder() { return &recorder_; }
    [[nodiscard]] const QString& searchText() const { return searchText_; }
    [[nodiscard]] bool isSearching() const { return search_.isSearching(); }
    [[nodiscard]] const QString& targetPath() const { return targetPath_; }
    [[nodiscard]] const QString& targetName() const { return targetName_; }
    [[nodiscard]] const QString& problem() const { return problem_; }
    [[nodiscard]] QString savedName() const;
    [[nodiscard]] QStringList savedKeys() const;
    [[nodiscard]] QString savedCombo() const;

    // While the text is empty the suggestions show.
    Q_INVOKABLE void search(const QString& text);
    // One of the choices, by its path.
    Q_INVOKABLE void choose(const QString& path);

    [[nodiscard]] bool hasTarget() const { return !targetPath_.isEmpty(); }
    // A target and a combo are there: save() makes a shortcut of them.
    [[nodiscard]] bool isComplete() const { return hasTarget() && recorder_.combo().has_value(); }
    void save();
    [[nodiscard]] const std::optional<model::RecordId>& savedId() const { return savedId_; }

Q_SIGNALS:
    void searchChanged();
    void targetChanged();
    void saved();

private:
    [[nodiscard]] std::optional<model::ShortcutItem> savedItem() const;
    void suggest(const QString& path, const QString& detail);
    void suggestTerminals();
    void showChoices();
    void setTarget(const QString& path, const QString& name);

    app::AppDelegate& agent_;
    TargetChoices choices_;
    RecorderFace recorder_;
    TargetSearchService search_;
    QString searchText_;
    std::vector<TargetChoice> suggestions_;
    platform::FileSearch terminals_;
    QString targetPath_;
    QString targetName_;
    QString problem_;
    std::optional<model::RecordId> savedId_;
};

} // namespace skipnest::ui
