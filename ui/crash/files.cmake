list(APPEND UI_SOURCES crash/CrashReportModel.cpp)
list(APPEND UI_QML crash/CrashScreen.qml)
