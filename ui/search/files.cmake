list(APPEND UI_SOURCES search/TargetSearchService.cpp)
