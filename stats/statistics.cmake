list(APPEND STATS_SOURCES
    JumpStats.cpp
    LocalDays.cpp
    Milestones.cpp
    StatsFile.cpp
    StatsStore.cpp
)
