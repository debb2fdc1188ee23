list(APPEND UI_SOURCES
    editor/PlainLine.cpp
    editor/RecorderFace.cpp
    editor/RecorderWording.cpp
    editor/SearchResults.cpp
    editor/ShortcutEditor.cpp
    editor/TargetChooser.cpp)
list(APPEND UI_QML
    editor/ComboField.qml
    editor/EditorScreen.qml
    editor/FieldLabel.qml
    editor/FoundTargetRow.qml
    editor/TargetSearchField.qml)
