list(APPEND LINUX_SOURCES
    ApplicationIdentity.cpp
    ApplicationLauncher.cpp
    BundleIdentifiers.cpp
    DesktopEntries.cpp
    DesktopEntryIndex.cpp
    FolderWatch.cpp
    ProcessFacts.cpp
    X11ApplicationControl.cpp
    X11Applications.cpp
    X11ScriptRunner.cpp
    X11StartupNotification.cpp
    X11UnmanagedWindows.cpp
    X11WindowCommands.cpp
    X11Windows.cpp
    X11Workspace.cpp
)
