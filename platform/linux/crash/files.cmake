# What is left of a run that ends by a fatal signal or an uncaught exception.
list(APPEND LINUX_SOURCES
    crash/AlternateStack.cpp
    crash/CallStack.cpp
    crash/CodePlaces.cpp
    crash/CrashRecordFile.cpp
    crash/CrashRecordText.cpp
    crash/FatalSignals.cpp
    crash/LinuxCrashCapture.cpp
)
# A first call through the linkage table resolves its symbol, which takes locks: not in a handler.
set_source_files_properties(
    crash/CallStack.cpp crash/CodePlaces.cpp crash/CrashRecordFile.cpp crash/CrashRecordText.cpp
    crash/FatalSignals.cpp crash/LinuxCrashCapture.cpp
    PROPERTIES COMPILE_OPTIONS -fno-plt)
