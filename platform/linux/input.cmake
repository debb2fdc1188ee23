list(APPEND LINUX_SOURCES
    KeyTable.cpp
    X11ClientDeaths.cpp
    X11Hotkeys.cpp
    X11KeyEvents.cpp
    X11KeyboardLayout.cpp
    X11Keymap.cpp
    X11RawKeys.cpp
)
