// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <qqmlintegration.h>

namespace skipnest::app {
class AppDelegate;
}

namespace skipnest::ui {

class OnboardingModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the popover")
public:
    explicit OnboardingModel(app::AppDelegate& agent, QObject* parent = nullptr);

    // Lets go of everything that it holds on the desktop.
    void stop() {}

private:
    app::AppDelegate& agent_;
};

} // namespace skipnest::ui
