# Taking a phrase apart by the words of the two languages.
list(APPEND VOICE_SOURCES
    Clauses.cpp
    DesktopNumber.cpp
    JumpChoice.cpp
    MoveCommand.cpp
    PhraseDecision.cpp
    PhraseParts.cpp
    SearchQuery.cpp
    Sites.cpp
    SpokenWords.cpp
    VoiceCommand.cpp
    VoiceFillers.cpp
    Vocabulary.cpp
)
