list(APPEND UI_SOURCES settings/SettingsModel.cpp)
list(APPEND UI_QML settings/SettingsScreen.qml)
