list(APPEND SERVICES_SOURCES CrashRecord.cpp CrashReporter.cpp)
