# The file store in memory, apart from the rest of the simulation: store tests need nothing else.
add_library(skipnest_sim_files STATIC ${CMAKE_CURRENT_LIST_DIR}/MemoryFiles.cpp)
target_link_libraries(skipnest_sim_files PUBLIC skipnest_options Qt6::Core skipnest_platform)
