// SPDX-License-Identifier: Apache-2.0
#include "ui/editor/ShortcutEditor.h"

#include "app/AppDelegate.h"
#include "hotkeys/HotkeyPlan.h"
#include "platform/Bookmarks.h"
#include "platform/Files.h"
#include "platform/Workspace.h"
#include "ui/ComboWording.h"
#include "ui/editor/PlainLine.h"
#include "ui/list/MissingTargets.h"

#include <QDir>

#include <algorithm>

namespace skipnest::ui {

using hotkeys::HotkeyAction;
using hotkeys::PlannedHotkey;
using model::RecordId;
using model::ShortcutItem;
using platform::FileKind;
using TargetType = ShortcutItem::TargetType;

ShortcutEditor::ShortcutEditor(app::AppDelegate& agent, QObject* parent)
    : QObject(parent), agent_(agent), chooser_(agent), jumpKey_(agent), hideKey_(agent) {
    connect(&chooser_, &TargetChooser::chosen, this, [this](const QString& path) {
        setTarget(path);
        setChoosing(false);
    });
    connect(&jumpKey_, &RecorderFace::starting, &hideKey_, &RecorderFace::stop);
    connect(&hideKey_, &RecorderFace::starting, &jumpKey_, &RecorderFace::stop);
    for (RecorderFace* key : {&jumpKey_, &hideKey_}) {
        connect(key, &RecorderFace::changed, this, &ShortcutEditor::derivedHideChanged);
        connect(key, &RecorderFace::chosen, this, [this] {
            if (existingId_.isEmpty())
                setProblem({});
        });
    }
}

void ShortcutEditor::startAdd(const QString& path) {
    start(std::nullopt, path.isEmpty() ? path : QDir::cleanPath(path));
}

void ShortcutEditor::startEdit(const RecordId& id) {
    if (auto item = agent_.viewModel().item(id)) {
        const QString path = item->targetPath;
        start(std::move(item), path);
    }
}

void ShortcutEditor::start(std::optional<ShortcutItem> edited, const QString& path) {
    jumpKey_.stop();
    hideKey_.stop();
    chooser_.reset();
    edited_ = std::move(edited);
    const auto id = edited_ ? std::optional(edited_->id) : std::nullopt;
    jumpKey_.setEditingItemId(id);
    hideKey_.setEditingItemId(id);
    jumpKey_.setCombo(edited_ ? edited_->keyCombo : std::nullopt);
    hideKey_.setCombo(edited_ ? edited_->hideKeyCombo : std::nullopt);
    path_.clear();
    name_ = edited_ ? edited_->name : QString();
    setTarget(path);
    // A new shortcut for something that is gone is one for something else.
    const bool hasTarget = edited_ || (!path_.isEmpty() && !isTargetMissing_);
    if (!hasTarget && !path_.isEmpty()) {
        setProblem(tr("“%1” is not there any more.").arg(targetName()));
        path_.clear();
        name_.clear();
        isTargetMissing_ = false;
    }
    setChoosing(!hasTarget);
    Q_EMIT changed();
    Q_EMIT nameChanged();
    Q_EMIT started();
}

void ShortcutEditor::pause() {
    jumpKey_.stop();
    hideKey_.stop();
    chooser_.pause();
}

void ShortcutEditor::cancel() {
    start(std::nullopt, {});
}

bool ShortcutEditor::hasDraft() const {
    const auto is = [this](const QString& path, const QString& name, const auto& jump,
                           const auto& hide) {
        return path_ == path && name_ == name && jumpKey_.combo() == jump &&
               hideKey_.combo() == hide && chooser_.text().isEmpty();
    };
    constexpr std::optional<model::KeyCombo> none;
    return edited_
               ? !is(edited_->targetPath, edited_->name, edited_->keyCombo, edited_->hideKeyCombo)
               : !is({}, {}, none, none);
}

// Named after the target unless the person has given it another name.
void ShortcutEditor::setTarget(const QString& path) {
    const bool isNameOwn = !name_.trimmed().isEmpty() && name_ != targetName();
    path_ = path;
    ShortcutItem probe;
    if (edited_ && edited_->targetPath == path)
        probe = *edited_;
    probe.targetPath = path;
    isTargetMissing_ =
        !path.isEmpty() && isMissing(probe, agent_.ports().files, agent_.ports().bookmarks);
    if (!isNameOwn)
        setName(targetName());
    const bool isNew = !path.isEmpty() && !(edited_ && edited_->targetPath == path);
    if (const auto existing = isNew ? agent_.viewModel().find(path) : std::nullopt)
        setProblem(tr("“%1” has a shortcut already.").arg(plainLine(existing->name)),
                   existing->id.text());
    else
        setProblem({});
}

void ShortcutEditor::setChoosing(bool choosing) {
    chooser_.reset();
    if (std::exchange(isChoosing_, choosing) != choosing)
        Q_EMIT choosingChanged();
}

void ShortcutEditor::setName(const QString& name) {
    if (std::exchange(name_, name) != name)
        Q_EMIT nameChanged();
}

void ShortcutEditor::setProblem(const QString& text, const QString& existingId) {
    problem_ = text;
    existingId_ = existingId;
    Q_EMIT changed();
}

// As the list names new records; those of its own naming are left to it.
QString ShortcutEditor::targetName() const {
    if (path_.isEmpty())
        return {};
    const platform::Workspace& workspace = agent_.ports().workspace;
    if (workspace.isApplication(path_))
        if (const QString name = workspace.displayName(path_); !name.isEmpty())
            return name;
    const QString last = path_.section(u'/', -1);
    const qsizetype dot = last.lastIndexOf(u'.');
    const bool hasExtension = dot > 0 && dot < last.size() - 1 && !last.sliced(dot).contains(u' ');
    return last.isEmpty() ? path_ : hasExtension ? last.left(dot) : last;
}

QString ShortcutEditor::targetPlace() const {
    return shownPath(path_, agent_.ports().app.home);
}

bool ShortcutEditor::isUnconfirmed() const {
    return edited_ && !agent_.viewModel().isConfirmed(edited_->id);
}

QString ShortcutEditor::derivedHide() const {
    if (!jumpKey_.combo() || hideKey_.combo() || jumpKey_.isRecording())
        return {};
    std::vector<ShortcutItem> items = agent_.viewModel().shortcuts();
    ShortcutItem item = edited_.value_or(ShortcutItem());
    item.keyCombo = jumpKey_.combo();
    item.hideKeyCombo.reset();
    std::erase_if(items, [&item](const ShortcutItem& other) { return other.id == item.id; });
    items.push_back(item);
    const auto plan = hotkeys::planHotkeys(items, agent_.viewModel().config());
    const auto hide = std::ranges::find_if(plan, [&item](const PlannedHotkey& hotkey) {
        return hotkey.action == HotkeyAction::hide && hotkey.item->id == item.id;
    });
    if (hide == plan.end())
        return {};
    const auto& ports = agent_.ports();
    return tr("Hides with %1")
        .arg(
            comboText(hide->combo, ports.keyboardLayout, modifierStyle(ports.app, ports.defaults)));
}

void ShortcutEditor::changeTarget() {
    pause();
    setChoosing(true);
}

bool ShortcutEditor::keepTarget() {
    if (path_.isEmpty())
        return false;
    setChoosing(false);
    return true;
}

void ShortcutEditor::confirm() {
    if (edited_ && agent_.viewModel().confirm(edited_->id))
        Q_EMIT changed();
}

bool ShortcutEditor::refuseToSave() {
    if (path_.isEmpty()) {
        setProblem(tr("Choose what the shortcut opens first."));
        return true;
    }
    if (jumpKey_.combo() && jumpKey_.combo() == hideKey_.combo()) {
        setProblem(tr("One key cannot both jump and hide."));
        return true;
    }
    const bool isNewTarget = !edited_ || edited_->targetPath != path_;
    if (isNewTarget && agent_.ports().files.kind(path_) == FileKind::none) {
        isTargetMissing_ = true;
        setProblem(tr("“%1” is not there any more.").arg(plainLine(targetName())));
        return true;
    }
    if (const auto existing = isNewTarget ? agent_.viewModel().find(path_) : std::nullopt) {
        setProblem(tr("“%1” has a shortcut already.").arg(plainLine(existing->name)),
                   existing->id.text());
        return true;
    }
    return false;
}

void ShortcutEditor::save() {
    pause();
    if (refuseToSave())
        return;
    if (const auto id = edited_ ? change() : add()) {
        Q_EMIT saved(id->text());
        Q_EMIT finished();
    }
}

std::optional<RecordId> ShortcutEditor::add() {
    auto& list = agent_.viewModel();
    // Read first: the list's signals reach this editor too.
    const QString name = name_;
    const bool isNameOwn = !name.trimmed().isEmpty() && name != targetName();
    ShortcutItem item = list.addShortcut(path_, jumpKey_.combo(), hideKey_.combo());
    if (isNameOwn) {
        item.name = name;
        (void)list.update(item);
    }
    return item.id;
}

std::optional<RecordId> ShortcutEditor::change() {
    auto& list = agent_.viewModel();
    auto item = list.item(edited_->id);
    if (!item) {
        edited_.reset();
        setProblem(tr("This shortcut was removed in the meantime. Saving makes it anew."));
        return std::nullopt;
    }
    item->name = name_.trimmed().isEmpty() ? targetName() : name_;
    const auto take = [&item](std::optional<model::KeyCombo>& combo, const QString& key,
                              const std::optional<model::KeyCombo>& wanted) {
        if (combo == wanted)
            return;
        combo = wanted;
        item->unknownComboKeys.remove(key);
    };
    take(item->keyCombo, QStringLiteral("keyCombo"), jumpKey_.combo());
    take(item->hideKeyCombo, QStringLiteral("hideKeyCombo"), hideKey_.combo());
    if (path_ != edited_->targetPath)
        aimAt(*item, path_);
    (void)list.update(*item);
    return item->id;
}

void ShortcutEditor::aimAt(ShortcutItem& item, const QString& path) const {
    const auto& ports = agent_.ports();
    item.targetPath = path;
    item.targetType = ports.workspace.isApplication(path)          ? TargetType::application
                      : ports.files.kind(path) == FileKind::folder ? TargetType::folder
                                                                   : TargetType::file;
    const auto bookmark = ports.bookmarks.create(path);
    item.bookmarkData = bookmark ? std::optional(*bookmark) : std::nullopt;
}

} // namespace skipnest::ui
