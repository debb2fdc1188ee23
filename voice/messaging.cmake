# Who a message is for, and by which application.
list(APPEND VOICE_SOURCES
    AppMentions.cpp
    MessagingApps.cpp
    MessagingRouter.cpp
)
