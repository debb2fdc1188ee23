list(APPEND STATS_SOURCES
    ChallengeBoard.cpp
    ChallengeCoding.cpp
    ChallengeName.cpp
    ChallengeService.cpp
)
