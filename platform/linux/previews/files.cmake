# Pictures of windows.
list(APPEND LINUX_SOURCES
    previews/LiveWindows.cpp
    previews/PictureReader.cpp
    previews/RedirectedWindows.cpp
    previews/X11ScreenCapture.cpp
)
