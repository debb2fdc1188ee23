// SPDX-License-Identifier: Apache-2.0
#include "ui/settings/KeyLedgerRows.h"

#include "app/AppDelegate.h"
#include "ui/ComboWording.h"

#include <QStringBuilder>

#include <array>
#include <utility>

namespace skipnest::ui {

using hotkeys::KeyLedger;
using Holder = KeyLedger::Row::Holder;

namespace {

// What our own combo is for.
QString purpose(const KeyLedger::Row& row) {
    struct Purpose {
        hotkeys::HotkeyAction action;
        QString text;
    };
    const auto purposes = std::to_array<Purpose>({
        {hotkeys::HotkeyAction::jump, row.shortcut},
        {hotkeys::HotkeyAction::hide, KeyLedgerRows::tr("hide %1").arg(row.shortcut)},
        {hotkeys::HotkeyAction::nextWindow, KeyLedgerRows::tr("next window")},
        {hotkeys::HotkeyAction::previousWindow, KeyLedgerRows::tr("previous window")},
        {hotkeys::HotkeyAction::voice, KeyLedgerRows::tr("voice")},
    });
    for (const Purpose& each : purposes)
        if (hotkeys::actionName(each.action) == row.action)
            return each.text;
    return row.action;
}

QString groupTitle(Holder holder) {
    switch (holder) {
    case Holder::ours:
    case Holder::neverFires:
        return KeyLedgerRows::tr("Skipnest");
    case Holder::refused:
        return KeyLedgerRows::tr("Refused to Skipnest");
    case Holder::desktop:
        return KeyLedgerRows::tr("The desktop");
    }
    Q_UNREACHABLE();
}

} // namespace

QString holderText(const KeyLedger::Row& row) {
    switch (row.holder) {
    case Holder::ours:
        return QStringLiteral("Skipnest: ") % purpose(row);
    case Holder::refused: {
        const QString who = row.owner.isEmpty() ? KeyLedgerRows::tr("another program") : row.owner;
        return KeyLedgerRows::tr("Refused: %1 has it").arg(who) % u" (" % purpose(row) % u')';
    }
    case Holder::neverFires:
        return (row.owner.isEmpty() ? KeyLedgerRows::tr("never fires")
                                    : KeyLedgerRows::tr("never fires: %1").arg(row.owner)) %
               u" (" % purpose(row) % u')';
    case Holder::desktop:
        if (row.owner.isEmpty() || row.action.isEmpty())
            return row.owner.isEmpty() ? row.action : row.owner;
        return row.owner % u": " % row.action;
    }
    Q_UNREACHABLE();
}

KeyLedgerRows::KeyLedgerRows(app::AppDelegate& agent, QObject* parent)
    : KeyedListModel(parent), agent_(agent) {
    connect(&agent.ledger(), &KeyLedger::changed, this, &KeyLedgerRows::update);
    update();
}

void KeyLedgerRows::setFilter(const QString& filter) {
    if (std::exchange(filter_, filter) == filter)
        return;
    update();
    Q_EMIT filterChanged();
}

void KeyLedgerRows::update() {
    const platform::Ports& ports = agent_.ports();
    const auto style = modifierStyle(ports.app, ports.defaults);
    const QStringList words = filter_.split(u' ', Qt::SkipEmptyParts);
    std::vector<Row> wanted;
    for (const KeyLedger::Row& each : agent_.ledger().rows()) {
        Row row{each.combo, groupTitle(each.holder), holderText(each),
                comboKeys(each.combo, ports.keyboardLayout, style),
                each.holder == Holder::ours || each.holder == Holder::desktop};
        const QString all = row.keys.join(u'+') % u' ' % row.holder;
        if (std::ranges::all_of(words, [&all](const QString& word) {
                return all.contains(word, Qt::CaseInsensitive);
            }))
            wanted.push_back(std::move(row));
    }
    setRows(wanted);
    summarize();
}

void KeyLedgerRows::summarize() {
    int ours = 0;
    int refused = 0;
    int desktop = 0;
    for (const KeyLedger::Row& row : agent_.ledger().rows())
        ++(row.holder == Holder::refused   ? refused
           : row.holder == Holder::desktop ? desktop
                                           : ours);
    const QString text =
        QStringList{tr("%n of Skipnest", nullptr, ours), tr("%n refused", nullptr, refused),
                    tr("%n of the desktop", nullptr, desktop)}
            .join(QStringLiteral(" · "));
    hasRefused_ = refused > 0;
    if (std::exchange(summary_, text) != text)
        Q_EMIT summaryChanged();
}

QVariant KeyLedgerRows::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Row& row = rows()[static_cast<std::size_t>(index.row())];
    switch (role) {
    case groupRole:
        return row.group;
    case holderRole:
        return row.holder;
    case keysRole:
        return row.keys;
    case worksRole:
        return row.works;
    default:
        return {};
    }
}

QHash<int, QByteArray> KeyLedgerRows::roleNames() const {
    return {{groupRole, "group"}, {holderRole, "holder"}, {keysRole, "keys"}, {worksRole, "works"}};
}

} // namespace skipnest::ui
