list(APPEND UI_SOURCES
    list/FoldedText.cpp
    list/ListBanner.cpp
    list/MissingTargets.cpp
    list/RemovedShortcuts.cpp
    list/ShortcutListScreenModel.cpp
    list/ShortcutRows.cpp)
list(APPEND UI_QML
    list/EmptyList.qml
    list/ListBannerLine.qml
    list/ShortcutListScreen.qml
    list/ShortcutRow.qml
    list/UndoLine.qml)
