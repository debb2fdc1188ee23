list(APPEND LINUX_SOURCES
    KeyTable.cpp
    X11ClientDeaths.cpp
    X11HeldKeys.cpp
    X11Hotkeys.cpp
    X11KeyEvents.cpp
    X11KeyStrokes.cpp
    X11KeyboardGrab.cpp
    X11KeyboardLayout.cpp
    X11Keymap.cpp
    X11PointerEvents.cpp
    X11RawInput.cpp
)
