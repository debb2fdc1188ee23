// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ShortcutItem.h"
#include "ui/editor/RecorderFace.h"
#include "ui/editor/TargetChooser.h"

#include <QObject>
#include <qqmlintegration.h>

#include <optional>

namespace skipnest::app {
class AppDelegate;
}

namespace skipnest::ui {

// Makes a new shortcut or changes one. First a target is chosen, then its name and keys; nothing
// reaches the list before save().
class ShortcutEditor final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the popover")
    // A shortcut that exists is changed.
    Q_PROPERTY(bool editing READ isEditing NOTIFY changed)
    Q_PROPERTY(QString recordId READ recordId NOTIFY changed)
    // The target is being looked for, else name and keys are shown.
    Q_PROPERTY(bool choosing READ isChoosing NOTIFY choosingChanged)
    Q_PROPERTY(skipnest::ui::TargetChooser* chooser READ chooser CONSTANT)
    Q_PROPERTY(QString targetPath READ targetPath NOTIFY changed)
    Q_PROPERTY(QString targetName READ targetName NOTIFY changed)
    Q_PROPERTY(QString targetPlace READ targetPlace NOTIFY changed)
    Q_PROPERTY(bool targetMissing READ isTargetMissing NOTIFY changed)
    // It came with an import and waits to be confirmed.
    Q_PROPERTY(bool unconfirmed READ isUnconfirmed NOTIFY changed)
    // As typed; a name of white space alone counts as none, and suggestedName takes its place.
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(QString suggestedName READ targetName NOTIFY changed)
    Q_PROPERTY(skipnest::ui::RecorderFace* jumpKey READ jumpKey CONSTANT)
    Q_PROPERTY(skipnest::ui::RecorderFace* hideKey READ hideKey CONSTANT)
    // What hides it without a hide key of its own; empty where nothing does.
    Q_PROPERTY(QString derivedHide READ derivedHide NOTIFY derivedHideChanged)
    // Why it cannot be saved; and the shortcut that has the target already, where that is why.
    Q_PROPERTY(QString problem READ problem NOTIFY changed)
    Q_PROPERTY(QString existingId READ existingId NOTIFY changed)
public:
    explicit ShortcutEditor(app::AppDelegate& agent, QObject* parent = nullptr);

    // Begins a new shortcut, for this target where it is not empty.
    void startAdd(const QString& path);
    void startEdit(const model::RecordId& id);
    // Ends recordings and searches; what was typed stays.
    void pause();
    // The screen was left.
    void cancel();
    // Something was chosen, typed or recorded that neither is saved nor given up.
    [[nodiscard]] bool hasDraft() const;

    [[nodiscard]] bool isEditing() const { return edited_.has_value(); }
    [[nodiscard]] QString recordId() const { return edited_ ? edited_->id.text() : QString(); }
    [[nodiscard]] bool isChoosing() const { return isChoosing_; }
    [[nodiscard]] TargetChooser* chooser() { return &chooser_; }
    [[nodiscard]] const QString& targetPath() const { return path_; }
    [[nodiscard]] QString targetName() const;
    [[nodiscard]] QString targetPlace() const;
    [[nodiscard]] bool isTargetMissing() const { return isTargetMissing_; }
    [[nodiscard]] bool isUnconfirmed() const;
    [[nodiscard]] const QString& name() const { return name_; }
    void setName(const QString& name);
    [[nodiscard]] RecorderFace* jumpKey() { return &jumpKey_; }
    [[nodiscard]] RecorderFace* hideKey() { return &hideKey_; }
    [[nodiscard]] QString derivedHide() const;
    [[nodiscard]] const QString& problem() const { return problem_; }
    [[nodiscard]] const QString& existingId() const { return existingId_; }

    // Another target for the same shortcut; its id and keys stay.
    Q_INVOKABLE void changeTarget();
    // Back from there to the target it had. False where it had none.
    Q_INVOKABLE bool keepTarget();
    Q_INVOKABLE void confirm();
    Q_INVOKABLE void save();

Q_SIGNALS:
    // A new shortcut or another record is edited from now on.
    void started();
    void changed();
    void choosingChanged();
    void nameChanged();
    void derivedHideChanged();
    void saved(const QString& recordId);
    // Saved or given up: the list shows again.
    void finished();

private:
    void start(std::optional<model::ShortcutItem> edited, const QString& path);
    void setTarget(const QString& path);
    void setChoosing(bool choosing);
    void setProblem(const QString& text, const QString& existingId = {});
    [[nodiscard]] bool refuseToSave();
    [[nodiscard]] std::optional<model::RecordId> add();
    [[nodiscard]] std::optional<model::RecordId> change();
    void aimAt(model::ShortcutItem& item, const QString& path) const;

    app::AppDelegate& agent_;
    TargetChooser chooser_;
    RecorderFace jumpKey_;
    RecorderFace hideKey_;
    std::optional<model::ShortcutItem> edited_; // as it was when editing began
    bool isChoosing_ = true;
    QString path_;
    bool isTargetMissing_ = false;
    QString name_;
    QString problem_;
    QString existingId_;
};

} // namespace skipnest::ui
