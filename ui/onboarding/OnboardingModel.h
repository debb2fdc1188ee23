// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/onboarding/FirstPress.h"
#include "ui/onboarding/FirstShortcut.h"
#include "ui/onboarding/GesturePractice.h"

#include <QObject>
#include <QVariantList>
#include <qqmlintegration.h>

namespace skipnest::ui {

// The way to a first working shortcut, in five steps. Whatever a step saves is saved at once: the
// window may be closed at any time, and onboarding shows again at the next start until it is
// finished or skipped.
class OnboardingModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the popover")
    // "welcome", "firstShortcut", "tryIt", "gesture", "done".
    Q_PROPERTY(QString step READ stepName NOTIFY stepChanged)
    Q_PROPERTY(int position READ position NOTIFY stepChanged) // from 0
    Q_PROPERTY(int count READ count CONSTANT)
    Q_PROPERTY(bool canGoBack READ canGoBack NOTIFY stepChanged)
    Q_PROPERTY(bool canGoOn READ canGoOn NOTIFY canGoOnChanged)
    // Going on saves the shortcut at hand.
    Q_PROPERTY(bool willSave READ willSave NOTIFY canGoOnChanged)
    // Light, dark, brand.
    Q_PROPERTY(int theme READ theme NOTIFY themeChanged)
    // A colour each of window, surface, border, text, secondaryText and accent for each theme.
    Q_PROPERTY(QVariantList palettes READ palettes CONSTANT)
    Q_PROPERTY(skipnest::ui::FirstShortcut* shortcut READ shortcut CONSTANT)
    Q_PROPERTY(skipnest::ui::FirstPress* press READ press CONSTANT)
    Q_PROPERTY(skipnest::ui::GesturePractice* gesture READ gesture CONSTANT)
    // Whether there is an icon to click: "available", "limited", "unavailable".
    Q_PROPERTY(QString statusItem READ statusItem NOTIFY stepChanged)
    Q_PROPERTY(bool launchAtLogin READ launchAtLogin NOTIFY launchAtLoginChanged)
    Q_PROPERTY(bool canLaunchAtLogin READ canLaunchAtLogin NOTIFY launchAtLoginChanged)
    // Why it cannot, or did not work.
    Q_PROPERTY(QString launchAtLoginProblem READ launchAtLoginProblem NOTIFY launchAtLoginChanged)
    // Usage counts: asked here once, where there is a service that could take them.
    Q_PROPERTY(bool asksForPings READ asksForPings CONSTANT)
    Q_PROPERTY(bool pings READ pings NOTIFY pingsChanged)
public:
    explicit OnboardingModel(app::AppDelegate& agent, QObject* parent = nullptr);

    // Lets go of everything that it holds on the desktop.
    void stop();

    [[nodiscard]] QString stepName() const;
    [[nodiscard]] int position() const { return static_cast<int>(step_); }
    [[nodiscard]] static int count() { return static_cast<int>(Step::done) + 1; }
    [[nodiscard]] bool canGoBack() const { return step_ != Step::welcome; }
    // Not with half a shortcut; without any, the person may still see the rest.
    [[nodiscard]] bool canGoOn() const;
    [[nodiscard]] bool willSave() const;
    [[nodiscard]] int theme() const;
    [[nodiscard]] static QVariantList palettes();
    [[nodiscard]] FirstShortcut* shortcut() { return &shortcut_; }
    [[nodiscard]] FirstPress* press() { return &press_; }
    [[nodiscard]] GesturePractice* gesture() { return &gesture_; }
    [[nodiscard]] QString statusItem() const;
    [[nodiscard]] bool launchAtLogin() const;
    [[nodiscard]] bool canLaunchAtLogin() const;
    [[nodiscard]] QString launchAtLoginProblem() const;

    [[nodiscard]] bool asksForPings() const;
    [[nodiscard]] bool pings() const { return pings_; }

    // On from the last step is the end.
    Q_INVOKABLE void next();
    Q_INVOKABLE void back();
    // Done, or skipped: it does not show again.
    Q_INVOKABLE void finish();
    Q_INVOKABLE void chooseTheme(int theme);
    Q_INVOKABLE void setLaunchAtLogin(bool wanted);
    // Holds from the end of the onboarding on.
    Q_INVOKABLE void setPings(bool wanted);

Q_SIGNALS:
    void stepChanged();
    void canGoOnChanged();
    void themeChanged();
    void launchAtLoginChanged();
    void pingsChanged();

private:
    enum class Step { welcome, firstShortcut, tryIt, gesture, done };

    void enter(Step step);
    // What can be tried: the shortcut made here, else the first that has a combo.
    [[nodiscard]] std::optional<model::RecordId> shortcutToTry() const;

    app::AppDelegate& agent_;
    Step step_ = Step::welcome;
    FirstShortcut shortcut_;
    FirstPress press_;
    GesturePractice gesture_;
    bool pings_;
};

} // namespace skipnest::ui
