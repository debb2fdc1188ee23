# How every target of this project is compiled, and the two ways to declare one.

add_library(skipnest_options INTERFACE)
target_compile_features(skipnest_options INTERFACE cxx_std_20)
target_include_directories(skipnest_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_definitions(skipnest_options INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH)
target_compile_options(skipnest_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    -Werror=switch -Werror=return-type)
if(SKIPNEST_SANITIZE)
    target_compile_options(skipnest_options INTERFACE
        -fsanitize=${SKIPNEST_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    target_link_options(skipnest_options INTERFACE -fsanitize=${SKIPNEST_SANITIZE})
    target_compile_definitions(skipnest_options INTERFACE SKIPNEST_SANITIZED)
endif()
if(SKIPNEST_FUZZ)
    target_compile_options(skipnest_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# skipnest_library(NAME SOURCES a.cpp ... LINK lib ...): one static library a folder.
function(skipnest_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC skipnest_options Qt6::Core ${ARG_LINK})
endfunction()

# skipnest_test(NAME SOURCES a.cpp ... LINK lib ... LABELS l ...): one GoogleTest binary, one ctest entry.
# Suites that need no display run in every preset; "e2e" suites own an X server and run one at a time.
function(skipnest_test name)
    cmake_parse_arguments(ARG "" "TIMEOUT" "SOURCES;LINK;LABELS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE skipnest_options Qt6::Core GTest::gmock GTest::gtest
        ${ARG_LINK})
    add_test(NAME ${name} COMMAND ${name})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    set_tests_properties(${name} PROPERTIES LABELS "${ARG_LABELS}" TIMEOUT ${ARG_TIMEOUT}
        SKIP_REGULAR_EXPRESSION "SKIPPED SUITE")
    if("e2e" IN_LIST ARG_LABELS)
        set_tests_properties(${name} PROPERTIES RUN_SERIAL TRUE)
        # They do not run there; whoever wants one builds it by name.
        if(SKIPNEST_SANITIZE)
            set_target_properties(${name} PROPERTIES EXCLUDE_FROM_ALL TRUE)
        endif()
    endif()
endfunction()
