# Understanding with a language model, and the people whom messages go to.
list(APPEND VOICE_SOURCES
    Certainty.cpp
    CleanupRules.cpp
    ContactsLookup.cpp
    DialingPlans.cpp
    IntentParser.cpp
    PhoneNumber.cpp
    VoiceIntent.cpp
)
