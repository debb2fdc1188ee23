// SPDX-License-Identifier: Apache-2.0
#include "ui/settings/SettingRows.h"

#include "app/AppDelegate.h"

#include <QCoreApplication>

#include <algorithm>

namespace skipnest::ui {

SettingRows::SettingRows(const SettingSectionInfo& section, app::AppDelegate& agent,
                         QObject* parent)
    : KeyedListModel(parent), section_(section), agent_(agent) {}

QString SettingRows::title() const {
    return QCoreApplication::translate("Settings", section_.title);
}

bool SettingRows::isToCome() const {
    return section_.feature == SettingSectionInfo::Feature::toCome;
}

QString SettingRows::note() const {
    if (isToCome())
        return tr("Arrives with a later version; your choice is kept.");
    if (section_.section == SettingSection::privacy && !agent_.webService().isConfigured())
        return tr("This build has no web service: nothing of this is ever sent.");
    return {};
}

void SettingRows::update(const QStringList& words) {
    const int before = count();
    const bool all = std::ranges::all_of(
        words, [this](const QString& word) { return title().contains(word, Qt::CaseInsensitive); });
    std::vector<SettingState> wanted;
    for (const Setting& setting : settings()) {
        if (setting.section != section_.section)
            continue;
        SettingState state = settingState(setting, agent_);
        if (all || state.matches(words))
            wanted.push_back(std::move(state));
    }
    setRows(wanted);
    if (before != count())
        Q_EMIT countChanged();
}

QVariant SettingRows::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const SettingState& row = rows()[static_cast<std::size_t>(index.row())];
    switch (role) {
    case nameRole:
        return row.name;
    case controlRole:
        return row.control;
    case titleRole:
        return row.title;
    case descriptionRole:
        return row.description;
    case defaultTextRole:
        return row.defaultText;
    case noteRole:
        return row.note;
    case isOnRole:
        return row.isOn;
    case optionsRole:
        return row.options;
    case symbolsRole:
        return row.symbols;
    case currentRole:
        return row.current;
    case comboKeysRole:
        return row.comboKeys;
    case textRole:
        return row.text;
    case exampleRole:
        return row.example;
    case canResetRole:
        return row.canReset;
    default:
        return {};
    }
}

QHash<int, QByteArray> SettingRows::roleNames() const {
    return {{nameRole, "name"},
            {controlRole, "control"},
            {titleRole, "title"},
            {descriptionRole, "description"},
            {defaultTextRole, "defaultText"},
            {noteRole, "note"},
            {isOnRole, "isOn"},
            {optionsRole, "options"},
            {symbolsRole, "symbols"},
            {currentRole, "current"},
            {comboKeysRole, "comboKeys"},
            {textRole, "text"},
            {exampleRole, "example"},
            {canResetRole, "canReset"}};
}

} // namespace skipnest::ui
