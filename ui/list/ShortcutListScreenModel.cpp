// SPDX-License-Identifier: Apache-2.0
#include "ui/list/ShortcutListScreenModel.h"

#include "app/AppDelegate.h"
#include "platform/KeyboardLayout.h"
#include "ui/ComboWording.h"
#include "ui/editor/PlainLine.h"
#include "ui/list/FoldedText.h"

#include <algorithm>

namespace skipnest::ui {

using hotkeys::HotkeyManager;
using model::KeyCombo;
using model::RecordId;
using model::ShortcutItem;
using model::ShortcutListViewModel;

ShortcutListScreenModel::ShortcutListScreenModel(app::AppDelegate& agent, QObject* parent)
    : QObject(parent), agent_(agent), banner_(agent),
      missing_(agent.ports().executor, agent.ports().files, agent.ports().bookmarks),
      removed_(agent.viewModel(), agent.ports().scheduler),
      layoutChanges_(agent.ports().keyboardLayout.observeChanges([this] { rebuild(); })) {
    auto& list = agent.viewModel();
    connect(&list, &ShortcutListViewModel::shortcutsChanged, this, [this] {
        if (!agent_.viewModel().hotkeysSuspended())
            refusals_ = refusals();
        rebuild();
        missing_.check(agent_.viewModel().shortcuts());
    });
    connect(&list, &ShortcutListViewModel::settingsChanged, this,
            &ShortcutListScreenModel::rebuild);
    connect(&agent.ledger(), &hotkeys::KeyLedger::changed, this,
            &ShortcutListScreenModel::takeRefusals);
    connect(&missing_, &MissingTargets::changed, this, &ShortcutListScreenModel::rebuild);
    connect(&removed_, &RemovedShortcuts::changed, this, &ShortcutListScreenModel::undoChanged);
    refusals_ = refusals();
    rebuild();
}

void ShortcutListScreenModel::refresh() {
    takeRefusals();
    missing_.check(agent_.viewModel().shortcuts());
    banner_.refresh();
}

// A refused combo may have been bound since, without anybody's word.
ShortcutListScreenModel::Refusals ShortcutListScreenModel::refusals() const {
    Refusals refusals;
    for (const HotkeyManager::Entry& entry : agent_.hotkeys().refused()) {
        if (!entry.hotkey.item)
            continue;
        const auto claim = agent_.ledger().desktopShortcut(entry.hotkey.combo);
        const QString owner = claim ? plainLine(claim->owner) : tr("another program");
        const bool isJump = entry.hotkey.action == hotkeys::HotkeyAction::jump;
        const QString text = isJump ? tr("Not bound: %1 has it").arg(owner)
                                    : tr("Hide key not bound: %1 has it").arg(owner);
        // That one cannot jump says more than that one cannot hide.
        if (isJump)
            refusals.insert_or_assign(entry.hotkey.item->id, text);
        else
            refusals.try_emplace(entry.hotkey.item->id, text);
    }
    return refusals;
}

void ShortcutListScreenModel::takeRefusals() {
    // During a recording nothing is registered, and nothing is wrong with that.
    if (agent_.viewModel().hotkeysSuspended())
        return;
    Refusals now = refusals();
    if (now == refusals_)
        return;
    refusals_ = std::move(now);
    rebuild();
}

void ShortcutListScreenModel::rebuild() {
    const std::vector<ShortcutItem>& items = agent_.viewModel().shortcuts();
    Sharers sharers;
    for (const ShortcutItem& item : items) {
        if (item.keyCombo)
            sharers[*item.keyCombo].push_back(&item);
        if (item.hideKeyCombo && item.hideKeyCombo != item.keyCombo)
            sharers[*item.hideKeyCombo].push_back(&item);
    }
    all_.clear();
    all_.reserve(items.size());
    for (const ShortcutItem& item : items) {
        ShortcutRow row = rowFor(item, sharers);
        // What every application's path has in common finds none of them.
        const QString searched =
            item.targetType == ShortcutItem::TargetType::application
                ? foldedText(row.name)
                : foldedText(row.name + u'\n' +
                             shownPath(item.targetPath, agent_.ports().app.home));
        all_.push_back({std::move(row), searched});
    }
    applyFilter();
}

void ShortcutListScreenModel::setFilter(const QString& filter) {
    if (std::exchange(filter_, filter) == filter)
        return;
    applyFilter();
    Q_EMIT filterChanged();
}

void ShortcutListScreenModel::applyFilter() {
    const QString wanted = foldedText(filter_.simplified());
    std::vector<ShortcutRow> rows;
    rows.reserve(all_.size());
    for (const Shown& shown : all_)
        if (shown.searched.contains(wanted))
            rows.push_back(shown.row);
    rows_.setRows(rows);
    Q_EMIT contentChanged();
}

ShortcutRow ShortcutListScreenModel::rowFor(const ShortcutItem& item,
                                            const Sharers& sharers) const {
    const auto& ports = agent_.ports();
    const auto style = modifierStyle(ports.app, ports.defaults);
    const Note note = noteFor(item, sharers);
    return {
        .id = item.id,
        .name = plainLine(item.name),
        .path = item.targetPath,
        .place = placeOf(item),
        .keys = comboKeys(item.keyCombo, ports.keyboardLayout, style),
        .hideKeys = comboKeys(item.hideKeyCombo, ports.keyboardLayout, style),
        .note = note.text,
        .noteKind = note.kind,
        .isConfirmed = agent_.viewModel().isConfirmed(item.id),
    };
}

QString ShortcutListScreenModel::placeOf(const ShortcutItem& item) const {
    if (item.targetType == ShortcutItem::TargetType::application)
        return tr("Application");
    return shownFolder(item.targetPath, agent_.ports().app.home);
}

// The gravest only: a row has one line for it.
ShortcutListScreenModel::Note ShortcutListScreenModel::noteFor(const ShortcutItem& item,
                                                               const Sharers& sharers) const {
    const QString danger = QStringLiteral("danger");
    const QString warning = QStringLiteral("warning");
    if (!agent_.viewModel().isConfirmed(item.id))
        return {tr("Imported – confirm before it can run"), warning};
    if (missing_.contains(item.id))
        return {tr("Not found: %1").arg(shownPath(item.targetPath, agent_.ports().app.home)),
                danger};
    if (item.keyCombo &&
        agent_.ports().hotkeys.availability().state == platform::Availability::State::unavailable)
        return {tr("Not bound by this desktop"), warning};
    for (const auto& combo : {item.keyCombo, item.hideKeyCombo}) {
        const auto found = combo ? sharers.find(*combo) : sharers.end();
        if (found == sharers.end() || found->second.size() < 2)
            continue;
        const ShortcutItem* other =
            found->second.front() == &item ? found->second.back() : found->second.front();
        return {tr("Same key as “%1”").arg(plainLine(other->name)), danger};
    }
    if (const auto refused = refusals_.find(item.id); refused != refusals_.end())
        return {refused->second, warning};
    return {};
}

QString ShortcutListScreenModel::undoText() const {
    return removed_.isOffered() ? tr("Removed “%1”").arg(plainLine(removed_.name())) : QString();
}

bool ShortcutListScreenModel::jump(const QString& id) {
    const auto record = RecordId::fromText(id);
    const auto item = record ? agent_.viewModel().item(*record) : std::nullopt;
    if (!item || !agent_.viewModel().isConfirmed(item->id) || missing_.contains(item->id))
        return false;
    agent_.shell().closePopover();
    agent_.jumps().jump(*item, agent_.ports().scheduler.now());
    return true;
}

void ShortcutListScreenModel::remove(const QString& id) {
    if (const auto record = RecordId::fromText(id))
        removed_.remove(*record);
}

void ShortcutListScreenModel::undo() {
    (void)removed_.undo();
}

void ShortcutListScreenModel::confirm(const QString& id) {
    if (const auto record = RecordId::fromText(id))
        (void)agent_.viewModel().confirm(*record);
}

void ShortcutListScreenModel::moveBy(const QString& id, int rows) {
    const auto record = RecordId::fromText(id);
    const int from = rowOf(id);
    const int to = from + rows;
    if (record && filter_.isEmpty() && from >= 0 && to >= 0 && to < rows_.rowCount())
        (void)agent_.viewModel().move(*record, to);
}

void ShortcutListScreenModel::drag(int from, int to) {
    const int count = rows_.rowCount();
    if (filter_.isEmpty() && from >= 0 && from < count && to >= 0 && to < count)
        rows_.moveRow(from, to);
}

void ShortcutListScreenModel::drop(const QString& id) {
    const auto record = RecordId::fromText(id);
    const int to = rowOf(id);
    if (record && filter_.isEmpty() && to >= 0)
        (void)agent_.viewModel().move(*record, to);
}

int ShortcutListScreenModel::rowOf(const QString& id) const {
    const auto record = RecordId::fromText(id);
    return record ? rows_.rowOf(*record) : -1;
}

} // namespace skipnest::ui
