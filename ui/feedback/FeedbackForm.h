// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <qqmlintegration.h>

#include <functional>

namespace skipnest::app {
class AppDelegate;
}

namespace skipnest::ui {

// What a person wants to tell the makers. The text stays until it was sent, whatever screen is
// shown in between.
class FeedbackForm final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the popover")
    Q_PROPERTY(QStringList categories READ categories CONSTANT)
    Q_PROPERTY(int category READ category WRITE setCategory NOTIFY changed)
    Q_PROPERTY(QString message READ message WRITE setMessage NOTIFY changed)
    Q_PROPERTY(QString email READ email WRITE setEmail NOTIFY changed)
    // What looks wrong about the address; it does not keep anybody from sending.
    Q_PROPERTY(QString emailHint READ emailHint NOTIFY changed)
    Q_PROPERTY(bool hasSender READ hasSender NOTIFY changed)
    Q_PROPERTY(bool hasMessage READ hasMessage NOTIFY changed)
    Q_PROPERTY(bool isSending READ isSending NOTIFY changed)
    // Of the last try, and its kind for a MessageLine.
    Q_PROPERTY(QString result READ result NOTIFY changed)
    Q_PROPERTY(QString resultKind READ resultKind NOTIFY changed)
public:
    struct Feedback {
        QString category; // "bug", "feature", "marketing", "other"
        QString message;  // trimmed, not empty
        QString email;    // trimmed, empty where none was given
    };
    // `done` is called once, on the main thread, with whether it arrived; it may be called from
    // inside, or after the form has gone.
    using Sender = std::function<void(const Feedback&, std::function<void(bool sent)> done)>;

    explicit FeedbackForm(app::AppDelegate& agent, QObject* parent = nullptr);

    // That of the web service where there is one. Without any the form says that it cannot send,
    // and offers the text to be copied.
    void setSender(Sender sender);

    [[nodiscard]] static QStringList categories();
    [[nodiscard]] int category() const { return category_; }
    [[nodiscard]] const QString& message() const { return message_; }
    [[nodiscard]] const QString& email() const { return email_; }
    [[nodiscard]] QString emailHint() const;
    [[nodiscard]] bool hasSender() const { return static_cast<bool>(sender_); }
    [[nodiscard]] bool hasMessage() const { return !message_.trimmed().isEmpty(); }
    [[nodiscard]] bool isSending() const { return state_ == State::sending; }
    [[nodiscard]] QString result() const;
    [[nodiscard]] QString resultKind() const;

    // Ignored while sending: what is on its way is what is shown.
    void setCategory(int category);
    void setMessage(const QString& message);
    void setEmail(const QString& email);
    // Nothing happens without a message or a sender.
    Q_INVOKABLE void send();
    // Category, message and address, to the clipboard.
    Q_INVOKABLE void copyText();

Q_SIGNALS:
    void changed();

private:
    enum class State { writing, sending, sent, failed, copied };
    void enter(State state);
    // The person goes on writing: the last result is old.
    void edited();

    app::AppDelegate& agent_;
    Sender sender_;
    State state_ = State::writing;
    int category_ = 0;
    QString message_;
    QString email_;
};

} // namespace skipnest::ui
