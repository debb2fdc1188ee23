# The windows of other programs: what they show of themselves, and bringing one forward.
list(APPEND LINUX_SOURCES
    windows/AtspiConnection.cpp
    windows/WindowMenu.cpp
    windows/WindowMenus.cpp
    windows/X11Accessibility.cpp
    windows/X11WindowDetails.cpp
)
