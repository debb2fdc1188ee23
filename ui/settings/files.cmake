list(APPEND UI_SOURCES
    settings/AvailabilityRows.cpp
    settings/KeyLedgerRows.cpp
    settings/SettingRows.cpp
    settings/SettingState.cpp
    settings/SettingsModel.cpp
    settings/SettingsTable.cpp
    settings/VocabularyRows.cpp)
list(APPEND UI_QML
    settings/AboutSection.qml
    settings/KeyLedgerPage.qml
    settings/PictureBar.qml
    settings/SettingRow.qml
    settings/SettingText.qml
    settings/SettingsScreen.qml
    settings/SettingsSection.qml
    settings/VocabularyEditor.qml)

# The drawings of the status item in the colour that a view asks for, as the other symbols are.
set(menubar_symbols ${CMAKE_CURRENT_BINARY_DIR}/menubar)
file(GLOB menubar_drawings CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/packaging/icons/menubar/*.svg)
foreach(drawing ${menubar_drawings})
    get_filename_component(name ${drawing} NAME)
    file(READ ${drawing} svg)
    string(REPLACE "<svg " "<svg fill=\"currentColor\" " svg "${svg}")
    string(REPLACE "#000" "currentColor" svg "${svg}")
    file(CONFIGURE OUTPUT ${menubar_symbols}/menubar-${name} CONTENT "${svg}" @ONLY)
    list(APPEND menubar_files ${menubar_symbols}/menubar-${name})
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${drawing})
endforeach()
cmake_language(DEFER CALL qt_add_resources skipnest_ui menubar_symbols
    PREFIX /Skipnest/symbols BASE ${menubar_symbols} FILES ${menubar_files})
