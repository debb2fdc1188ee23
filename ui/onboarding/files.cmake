list(APPEND UI_SOURCES onboarding/OnboardingModel.cpp)
list(APPEND UI_QML onboarding/Onboarding.qml)
