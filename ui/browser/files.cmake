list(APPEND UI_SOURCES
    browser/BrowserRows.cpp
    browser/BrowserSetup.cpp)
list(APPEND UI_QML
    browser/BrowserGuide.qml
    browser/BrowserStep.qml
    browser/BrowsersScreen.qml)
