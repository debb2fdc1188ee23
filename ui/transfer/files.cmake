list(APPEND UI_SOURCES transfer/ExportModel.cpp transfer/ImportModel.cpp)
list(APPEND UI_QML transfer/ExportScreen.qml transfer/FileChoice.qml transfer/ImportScreen.qml)
