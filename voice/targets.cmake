list(APPEND VOICE_SOURCES
    Aliases.cpp
    EditDistance.cpp
    FileLookup.cpp
    FoldedText.cpp
    GatheredTargets.cpp
    InstalledInFolders.cpp
    JumpReach.cpp
    PhoneticKey.cpp
    ScoredTarget.cpp
    TargetIndex.cpp
    TargetList.cpp
    TargetScorer.cpp
    UseHistory.cpp
    VoiceUsage.cpp
    WordStems.cpp
    WordTable.cpp
)
