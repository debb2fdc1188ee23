list(APPEND VOICE_SOURCES
    EditDistance.cpp
    FoldedText.cpp
    PhoneticKey.cpp
    TargetScorer.cpp
    WordStems.cpp
    WordTable.cpp
)
