# Recording combos, and who else has them.
list(APPEND LINUX_SOURCES
    keys/DesktopClaims.cpp
    keys/DesktopKeyNames.cpp
    keys/DesktopSettings.cpp
    keys/GSettingsClaims.cpp
    keys/I3Claims.cpp
    keys/KdeClaims.cpp
    keys/KeySpelling.cpp
    keys/LinuxDesktopShortcuts.cpp
    keys/RunningDesktops.cpp
    keys/SystemSettings.cpp
    keys/VirtualTerminalKeys.cpp
    keys/X11KeyClaims.cpp
    keys/X11KeyInterception.cpp
    keys/X11KeyboardCapture.cpp
    keys/XmlClaims.cpp
)
