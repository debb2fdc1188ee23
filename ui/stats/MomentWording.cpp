// SPDX-License-Identifier: Apache-2.0
#include "ui/stats/MomentWording.h"

#include "stats/TimeSaved.h"
#include "ui/ComboWording.h"
#include "ui/stats/PluralCount.h"

#include <QCoreApplication>

#include <array>
#include <utility>

namespace skipnest::ui {

using model::ModifierFlags;
using platform::ModifierStyle;

namespace {

QString text(const char* source) {
    return QCoreApplication::translate("Moments", source);
}

struct Fixed {
    QStringView id;
    const char* title;
    const char* sub; // %1 is the rank, %2 the number of participants
};
constexpr auto fixedMilestones = std::to_array<Fixed>({
    {u"first", QT_TRANSLATE_NOOP("Moments", "Your first jump! 🎉"),
     QT_TRANSLATE_NOOP("Moments", "One key, and you were there. That's the whole magic.")},
    {u"ch.join", QT_TRANSLATE_NOOP("Moments", "You're on the world board! 🌍"),
     QT_TRANSLATE_NOOP("Moments", "The Global Jump Challenge counts your jumps now - rank #%1")},
    {u"ch.100", QT_TRANSLATE_NOOP("Moments", "Top 100 worldwide! 🌍"),
     QT_TRANSLATE_NOOP("Moments", "Rank #%1 of %2 challengers.")},
    {u"ch.10", QT_TRANSLATE_NOOP("Moments", "Top 10 in the world! 🏆"),
     QT_TRANSLATE_NOOP("Moments", "Rank #%1 of %2 - elite jumper.")},
    {u"ch.3", QT_TRANSLATE_NOOP("Moments", "You're on the podium! 🏅"),
     QT_TRANSLATE_NOOP("Moments", "Rank #%1 worldwide.")},
    {u"ch.1", QT_TRANSLATE_NOOP("Moments", "#1 in the world! 🥇"),
     QT_TRANSLATE_NOOP("Moments", "Nobody on the planet jumps more. Respect.")},
});

struct TipTitle {
    QStringView id;
    const char* title;
    const char* text;
};
constexpr auto tips = std::to_array<TipTitle>({
    {u"tip.hide", QT_TRANSLATE_NOOP("Moments", "And away again"),
     QT_TRANSLATE_NOOP("Moments", "Add ⇧ to any jump key and the window tucks away again. In, "
                                  "out, one hand.")},
    {u"tip.capture", QT_TRANSLATE_NOOP("Moments", "A key in two taps"),
     QT_TRANSLATE_NOOP("Moments", "Double-tap ⌃ while any app is in front, then press a letter - "
                                  "saved. Same double-tap, then ⌫, removes it again.")},
    {u"tip.drop", QT_TRANSLATE_NOOP("Moments", "Drop it in"),
     QT_TRANSLATE_NOOP("Moments",
                       "Drop any file or folder onto the menu-bar icon to give it a key.")},
    {u"tip.voice", QT_TRANSLATE_NOOP("Moments", "Say where to"),
     QT_TRANSLATE_NOOP("Moments", "Double-tap ⌘ and speak - \"Downloads\", \"Slack\", anywhere you "
                                  "want to go.")},
});

template <typename Table> auto entry(const Table& table, QStringView id) {
    const auto* found = table.begin();
    while (found != table.end() && found->id != id)
        ++found;
    return found;
}

// The number in "j500" and "h5"; nothing for other identifiers.
std::optional<std::int64_t> numberIn(const QString& id, char16_t letter) {
    if (!id.startsWith(QChar(letter)))
        return std::nullopt;
    bool isNumber = false;
    const qlonglong number = id.sliced(1).toLongLong(&isNumber);
    return isNumber ? std::optional<std::int64_t>(number) : std::nullopt;
}

QString withKeys(QString text, ModifierFlags hideKey, ModifierStyle style) {
    const auto key = [style](ModifierFlags flag) { return modifierKeys(flag, style).value(0); };
    text.replace(u'⇧', key(hideKey));
    text.replace(u'⌃', key(ModifierFlags::control));
    text.replace(u'⌘', key(ModifierFlags::command));
    if (style == ModifierStyle::names)
        text.replace(u'⌫', QCoreApplication::translate("Moments", "Backspace"));
    return text;
}

} // namespace

Moment wordedMilestone(const stats::Milestone& milestone,
                       const std::optional<stats::ChallengeStanding>& standing) {
    Moment moment{Moment::Kind::milestone, milestone.id, milestone.title, milestone.sub};
    if (const auto* found = entry(fixedMilestones, milestone.id); found != fixedMilestones.end()) {
        moment.title = text(found->title);
        moment.text = text(found->sub);
        if (standing)
            moment.text.replace(u"%1"_qs, QString::number(standing->rank))
                .replace(u"%2"_qs, QString::number(standing->of));
    } else if (const auto jumps = numberIn(milestone.id, u'j')) {
        moment.title = text(QT_TRANSLATE_NOOP("Moments", "%1 jumps! 🎉")).arg(*jumps);
        moment.text = text(QT_TRANSLATE_NOOP("Moments", "That's %1 of hunting you never did."))
                          .arg(stats::timeSavedText(*jumps));
    } else if (const auto hours = numberIn(milestone.id, u'h')) {
        moment.title = QCoreApplication::translate("Moments", "%n hours saved! 🎉", nullptr,
                                                   pluralCount(*hours));
        moment.text =
            text(QT_TRANSLATE_NOOP("Moments", "Reclaimed from window hunting - and counting."));
    }
    return moment;
}

Moment wordedRecap(const stats::Milestone& recap, std::int64_t weekJumps, std::int64_t streakDays) {
    QString line =
        text(QT_TRANSLATE_NOOP("Moments", "%1. Nice week.")).arg(stats::timeSavedText(weekJumps));
    if (streakDays >= 2)
        line += u' ' + QCoreApplication::translate("Statistics", "%n-day streak 🔥", nullptr,
                                                   pluralCount(streakDays));
    return {Moment::Kind::recap, recap.id,
            text(QT_TRANSLATE_NOOP("Moments", "%1 jumps this week ⚡")).arg(weekJumps), line};
}

Moment wordedTip(const stats::Tip& tip, const model::AppConfiguration& configuration,
                 ModifierStyle style) {
    const auto* found = entry(tips, tip.id);
    const bool isWorded = found != tips.end();
    return {Moment::Kind::tip, tip.id,
            isWorded ? text(found->title) : text(QT_TRANSLATE_NOOP("Moments", "Good to know")),
            withKeys(isWorded ? text(found->text) : tip.text, configuration.hideModifierOrDefault(),
                     style)};
}

} // namespace skipnest::ui
