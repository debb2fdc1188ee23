list(APPEND SERVICES_SOURCES
    FeedbackService.cpp
    Pings.cpp
    UpdateChecker.cpp
)
