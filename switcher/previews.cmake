list(APPEND SWITCHER_SOURCES ContentGrabber.cpp)
