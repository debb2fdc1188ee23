# German, and the plurals of English. `update_translations` takes texts that are new in the sources
# over into the .ts files, to be filled in there (any editor, or Qt Linguist); a test fails while one
# is missing.
find_package(Qt6 6.4 REQUIRED COMPONENTS LinguistTools)

target_sources(skipnest_ui PRIVATE Translations.cpp)
set(texts translations/skipnest_de.ts translations/skipnest_en.ts)
set_source_files_properties(${texts} PROPERTIES
    OUTPUT_LOCATION ${CMAKE_CURRENT_BINARY_DIR}/translations)
qt_add_translation(compiledTexts ${texts})
qt_add_resources(skipnest_ui skipnest_translations
    PREFIX /translations
    BASE ${CMAKE_CURRENT_BINARY_DIR}/translations
    FILES ${compiledTexts})

set(updateTexts ${CMAKE_COMMAND} -D LUPDATE=$<TARGET_FILE:Qt6::lupdate>
    -D SOURCE=${PROJECT_SOURCE_DIR} -D WORK=${CMAKE_CURRENT_BINARY_DIR}/translations)
add_custom_target(update_translations
    COMMAND ${updateTexts} -D MODE=update
        -P ${CMAKE_CURRENT_SOURCE_DIR}/translations/lupdate.cmake VERBATIM)
add_test(NAME translations COMMAND ${updateTexts} -D MODE=check
    -P ${CMAKE_CURRENT_SOURCE_DIR}/translations/lupdate.cmake)
set_tests_properties(translations PROPERTIES LABELS ui)
