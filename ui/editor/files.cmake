list(APPEND UI_SOURCES
    editor/PlainLine.cpp
    editor/RecorderFace.cpp
    editor/RecorderWording.cpp
    editor/ShortcutEditor.cpp)
list(APPEND UI_QML editor/ComboField.qml editor/EditorScreen.qml)
