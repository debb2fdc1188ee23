list(APPEND UI_SOURCES list/ShortcutListScreenModel.cpp)
list(APPEND UI_QML list/ShortcutListScreen.qml)
