list(APPEND SWITCHER_SOURCES BrowserScripts.cpp BrowserTabs.cpp)
