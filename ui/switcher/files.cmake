list(APPEND UI_SOURCES
    switcher/BarLayout.cpp
    switcher/BarRows.cpp
    switcher/MarkedMatch.cpp
    switcher/PointerRest.cpp
    switcher/PreviewScaler.cpp
    switcher/SwitcherBarModel.cpp
    switcher/SwitcherBarWindow.cpp
    switcher/WindowPreview.cpp)
list(APPEND UI_QML
    switcher/BarHints.qml
    switcher/FlowChips.qml
    switcher/FoundRows.qml
    switcher/LetterBadge.qml
    switcher/QueryField.qml
    switcher/SelectionRing.qml
    switcher/SwitcherBar.qml
    switcher/WindowCard.qml
    switcher/WindowCards.qml)
