// SPDX-License-Identifier: Apache-2.0
#include "ui/feedback/FeedbackForm.h"

#include "app/AppDelegate.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>
#include <QRegularExpression>
#include <QStringBuilder>

#include <algorithm>
#include <array>

namespace skipnest::ui {
namespace {

using Sent = services::FeedbackService::Category;

struct Category {
    const char* name;
    const char* title;
    Sent sent;
};
constexpr auto categoryTable = std::to_array<Category>({
    {"bug", QT_TRANSLATE_NOOP("skipnest::ui::FeedbackForm", "Bug"), Sent::bug},
    {"feature", QT_TRANSLATE_NOOP("skipnest::ui::FeedbackForm", "Feature"), Sent::feature},
    {"marketing", QT_TRANSLATE_NOOP("skipnest::ui::FeedbackForm", "Marketing"), Sent::marketing},
    {"other", QT_TRANSLATE_NOOP("skipnest::ui::FeedbackForm", "Other"), Sent::other},
});

// Only what cannot be an address: mail programs accept far more than any pattern knows.
bool looksLikeAddress(const QString& text) {
    static const QRegularExpression pattern(QStringLiteral("^[^@\\s]+@[^@\\s]+\\.[^@\\s.]+$"));
    return pattern.match(text).hasMatch();
}

} // namespace

FeedbackForm::FeedbackForm(app::AppDelegate& agent, QObject* parent)
    : QObject(parent), agent_(agent) {
    if (!agent.webService().isConfigured())
        return;
    sender_ = [&agent](const Feedback& feedback, std::function<void(bool)> done) {
        const auto* category = std::ranges::find_if(categoryTable, [&feedback](const auto& each) {
            return feedback.category == QLatin1String(each.name);
        });
        Q_ASSERT(category != categoryTable.end());
        agent.feedbackService().send(category->sent, feedback.message, feedback.email,
                                     std::move(done));
    };
}

void FeedbackForm::setSender(Sender sender) {
    sender_ = std::move(sender);
    Q_EMIT changed();
}

QStringList FeedbackForm::categories() {
    QStringList titles;
    for (const Category& category : categoryTable)
        titles.append(tr(category.title));
    return titles;
}

QString FeedbackForm::emailHint() const {
    const QString address = email_.trimmed();
    if (address.isEmpty() || looksLikeAddress(address))
        return {};
    return tr("This doesn't look like an e-mail address yet, so no answer could reach you.");
}

QString FeedbackForm::result() const {
    switch (state_) {
    case State::writing:
        return {};
    case State::sending:
        return tr("Sending…");
    case State::sent:
        return tr("Your feedback is on its way.");
    case State::failed:
        return tr("Couldn't send just now - check your connection and try again.");
    case State::copied:
        return tr("The text is on the clipboard.");
    }
    Q_UNREACHABLE();
}

QString FeedbackForm::resultKind() const {
    switch (state_) {
    case State::writing:
    case State::sending:
        return QStringLiteral("info");
    case State::sent:
    case State::copied:
        return QStringLiteral("success");
    case State::failed:
        return QStringLiteral("danger");
    }
    Q_UNREACHABLE();
}

void FeedbackForm::setCategory(int category) {
    if (isSending() || category == category_ || category < 0 ||
        category >= std::ssize(categoryTable))
        return;
    category_ = category;
    edited();
}

void FeedbackForm::setMessage(const QString& message) {
    if (isSending() || message == message_)
        return;
    message_ = message;
    edited();
}

void FeedbackForm::setEmail(const QString& email) {
    if (isSending() || email == email_)
        return;
    email_ = email;
    edited();
}

void FeedbackForm::send() {
    if (!sender_ || !hasMessage() || isSending())
        return;
    enter(State::sending);
    const auto& category = categoryTable[static_cast<std::size_t>(category_)];
    sender_({QString::fromLatin1(category.name), message_.trimmed(), email_.trimmed()},
            [self = QPointer<FeedbackForm>(this)](bool sent) {
                if (!self || !self->isSending())
                    return;
                if (sent)
                    self->message_.clear();
                self->enter(sent ? State::sent : State::failed);
            });
}

void FeedbackForm::copyText() {
    if (!hasMessage())
        return;
    const auto& category = categoryTable[static_cast<std::size_t>(category_)];
    QString text = tr(category.title) % u" (Skipnest " % agent_.ports().app.version % u")\n\n" %
                   message_.trimmed() % u'\n';
    if (const QString address = email_.trimmed(); !address.isEmpty())
        text += u'\n' % address % u'\n';
    QGuiApplication::clipboard()->setText(text);
    enter(State::copied);
}

void FeedbackForm::enter(State state) {
    state_ = state;
    Q_EMIT changed();
}

void FeedbackForm::edited() {
    enter(State::writing);
}

} // namespace skipnest::ui
