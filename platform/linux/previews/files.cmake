# Pictures of windows.
list(APPEND LINUX_SOURCES
    previews/PictureReader.cpp
    previews/RedirectedWindows.cpp
    previews/X11ScreenCapture.cpp
)
