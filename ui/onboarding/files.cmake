list(APPEND UI_SOURCES
    onboarding/ComboSuggestion.cpp
    onboarding/DoubleTapTrial.cpp
    onboarding/FirstPress.cpp
    onboarding/FirstShortcut.cpp
    onboarding/GesturePractice.cpp
    onboarding/OnboardingModel.cpp
    onboarding/TargetChoices.cpp)
list(APPEND UI_QML
    onboarding/DoneStep.qml
    onboarding/FirstShortcutStep.qml
    onboarding/GestureStep.qml
    onboarding/KeyCaps.qml
    onboarding/Onboarding.qml
    onboarding/OnboardingStep.qml
    onboarding/ProgressMark.qml
    onboarding/TargetChoiceRow.qml
    onboarding/ThemeTile.qml
    onboarding/TryItStep.qml
    onboarding/WelcomeStep.qml)
