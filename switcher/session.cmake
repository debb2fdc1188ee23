list(APPEND SWITCHER_SOURCES
    HoldGesture.cpp
    SwitcherKeys.cpp
    SwitcherSearch.cpp
    SwitcherSelection.cpp
    Win.cpp
    WindowGathering.cpp
    WindowSwitcher.cpp
)
