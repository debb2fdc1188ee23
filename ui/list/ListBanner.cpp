// SPDX-License-Identifier: Apache-2.0
#include "ui/list/ListBanner.h"

#include "app/AppDelegate.h"
#include "ui/editor/PlainLine.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLocale>

#include <algorithm>

namespace skipnest::ui {

using app::BindingsFor;
using hotkeys::KeyLedger;
using model::ShortcutItem;
using platform::Availability;

namespace {

// "config-2026-11-21.json"
std::optional<QDate> dayOf(const QString& snapshot) {
    const QDate day = QDate::fromString(snapshot.section(u'-', 1).section(u'.', 0, 0), Qt::ISODate);
    return day.isValid() ? std::optional(day) : std::nullopt;
}

// What is new, in one line of the banner.
QString firstLine(const QString& notes) {
    constexpr qsizetype longest = 120;
    const QString line = plainLine(notes.trimmed().section(u'\n', 0, 0)).trimmed();
    return line.size() <= longest ? line : line.left(longest).trimmed() + u'…';
}

QString shown(QDate day) {
    return QLocale().toString(day, QLocale::LongFormat);
}

} // namespace

ListBanner::ListBanner(app::AppDelegate& agent, QObject* parent) : QObject(parent), agent_(agent) {
    // The first save after a damaged file was found moves it aside.
    connect(&agent.viewModel(), &model::ShortcutListViewModel::shortcutsChanged, this, [this] {
        if (isDamaged_)
            lookAtStorage();
        refresh();
    });
    connect(&agent.ledger(), &KeyLedger::changed, this, &ListBanner::refresh);
    connect(&agent.crashReporter(), &services::CrashReporter::waitingChanged, this,
            &ListBanner::changed);
    connect(&agent.updates(), &services::UpdateChecker::availableChanged, this,
            &ListBanner::changed);
}

void ListBanner::refresh() {
    if (!std::exchange(isStorageKnown_, true))
        lookAtStorage();
    hotkeys_ = agent_.ports().hotkeys.availability();
    // During a recording nothing is registered, and nothing is wrong with that.
    if (!agent_.viewModel().hotkeysSuspended())
        refused_ = std::ssize(agent_.hotkeys().refused());
    Q_EMIT changed();
}

void ListBanner::lookAtStorage() {
    const model::StorageState state = agent_.storage().state();
    isDamaged_ = state.kind == model::StorageState::Kind::broken || state.movedTo.has_value();
    isSetAside_ = state.movedTo.has_value();
    snapshot_ = state.newestSnapshot ? dayOf(*state.newestSnapshot) : std::nullopt;
}

ListBanner::Subject ListBanner::subject() const {
    if (isDamaged_)
        return Subject::damaged;
    if (restored_)
        return Subject::restored;
    if (hotkeys_.state == Availability::State::unavailable && !areHotkeysDismissed_)
        return Subject::noHotkeys;
    if (hotkeys_.state != Availability::State::unavailable && refused_ > refusedWhenDismissed_)
        return Subject::notBound;
    if (agent_.crashReporter().waiting() && !isCrashDismissed_)
        return Subject::crash;
    const auto& release = agent_.updates().available();
    return release && release->version != dismissedVersion_ ? Subject::update : Subject::none;
}

QString ListBanner::kind() const {
    switch (subject()) {
    case Subject::damaged:
        return QStringLiteral("danger");
    case Subject::restored:
        return QStringLiteral("success");
    case Subject::noHotkeys:
        return copied_ ? QStringLiteral("success") : QStringLiteral("warning");
    case Subject::notBound:
        return QStringLiteral("warning");
    case Subject::none:
    case Subject::crash:
    case Subject::update:
        return QStringLiteral("info");
    }
    Q_UNREACHABLE();
}

QString ListBanner::text() const {
    switch (subject()) {
    case Subject::none:
        return {};
    case Subject::damaged:
        if (!restoreFailure_.isEmpty())
            return tr("The snapshot could not be restored: %1").arg(restoreFailure_);
        return isSetAside_ ? tr("Your configuration could not be read and was set aside.")
                           : tr("Your configuration could not be read. It is set aside before "
                                "anything new is saved.");
    case Subject::restored:
        return tr("Your shortcuts are back as they were on %1.").arg(shown(*restored_));
    case Subject::noHotkeys:
        if (copied_)
            return *copied_ == BindingsFor::sway
                       ? tr("Copied. Paste the lines into the configuration of sway.")
                       : tr("Copied. Paste the text into a terminal.");
        return tr("This desktop gives no keys to programs. Let it run the jumps itself: copy the "
                  "bindings for");
    case Subject::notBound:
        return notBoundText();
    case Subject::crash:
        return tr("Skipnest quit unexpectedly last time");
    case Subject::update:
        return updateText();
    }
    Q_UNREACHABLE();
}

QString ListBanner::notBoundText() const {
    const auto& rows = agent_.ledger().rows();
    const auto isOurs = [](const KeyLedger::Row& row) {
        return row.holder != KeyLedger::Row::Holder::desktop;
    };
    QStringList owners;
    for (const KeyLedger::Row& row : rows)
        if (row.holder == KeyLedger::Row::Holder::refused && !row.owner.isEmpty() &&
            !owners.contains(row.owner))
            owners.append(row.owner);
    const QString sentence = tr("%n of %1 keys are not bound", nullptr, static_cast<int>(refused_))
                                 .arg(std::ranges::count_if(rows, isOurs));
    if (owners.isEmpty())
        return tr("%1: another program has them.").arg(sentence);
    return tr("%1: taken by %2.").arg(sentence, owners.join(QStringLiteral(", ")));
}

QString ListBanner::updateText() const {
    const services::Release& release = *agent_.updates().available();
    QString text = tr("Skipnest update available") + QStringLiteral(": ") + release.version;
    if (const QString news = firstLine(release.notes); !news.isEmpty())
        text += u'\n' + news;
    return text;
}

QStringList ListBanner::actions() const {
    switch (subject()) {
    case Subject::none:
    case Subject::restored:
    case Subject::notBound:
        return {};
    case Subject::damaged:
        return snapshot_ && restoreFailure_.isEmpty()
                   ? QStringList{tr("Restore snapshot of %1").arg(shown(*snapshot_))}
                   : QStringList();
    case Subject::noHotkeys:
        // Names of desktops, the same in every language.
        return {QStringLiteral("GNOME"), QStringLiteral("KDE"), QStringLiteral("sway")};
    case Subject::crash:
        return {tr("Show the report")};
    case Subject::update:
        return {tr("Show the update")};
    }
    Q_UNREACHABLE();
}

void ListBanner::act(int index) {
    if (index < 0 || index >= actions().size())
        return;
    switch (subject()) {
    case Subject::none:
    case Subject::restored:
    case Subject::notBound:
        return;
    case Subject::damaged:
        return restore();
    case Subject::noHotkeys:
        return copyBindings(static_cast<BindingsFor>(index));
    case Subject::crash:
        Q_EMIT crashReportWanted();
        return;
    case Subject::update:
        // The browser comes to the front.
        agent_.shell().closePopover();
        agent_.updates().open();
    }
}

void ListBanner::restore() {
    const auto name = agent_.storage().restore(std::nullopt);
    if (!name) {
        restoreFailure_ = name.failure().detail;
        Q_EMIT changed();
        return;
    }
    isDamaged_ = false;
    restored_ = dayOf(*name);
    agent_.viewModel().reload();
    refresh();
}

void ListBanner::copyBindings(BindingsFor desktop) {
    std::vector<ShortcutItem> items = agent_.viewModel().shortcuts();
    std::erase_if(items, [this](const ShortcutItem& item) {
        return !agent_.viewModel().isConfirmed(item.id);
    });
    const auto& ports = agent_.ports();
    QGuiApplication::clipboard()->setText(
        app::readyBindings(items, desktop, ports.app.bundlePath, ports.keyboardLayout));
    copied_ = desktop;
    Q_EMIT changed();
}

void ListBanner::dismiss() {
    switch (subject()) {
    case Subject::none:
        return;
    case Subject::damaged:
        isDamaged_ = false;
        restoreFailure_.clear();
        break;
    case Subject::restored:
        restored_.reset();
        break;
    case Subject::noHotkeys:
        areHotkeysDismissed_ = true;
        break;
    case Subject::notBound:
        refusedWhenDismissed_ = refused_;
        break;
    case Subject::crash:
        isCrashDismissed_ = true;
        break;
    case Subject::update:
        dismissedVersion_ = agent_.updates().available()->version;
        break;
    }
    Q_EMIT changed();
}

} // namespace skipnest::ui
