list(APPEND UI_SOURCES feedback/FeedbackForm.cpp)
list(APPEND UI_QML feedback/FeedbackScreen.qml)
