list(APPEND UI_SOURCES controls/KeyedListModel.h)
list(APPEND UI_QML
    controls/ActionButton.qml
    controls/Card.qml
    controls/ChoiceBar.qml
    controls/DropDown.qml
    controls/FocusRing.qml
    controls/Hint.qml
    controls/IconButton.qml
    controls/KeyBadge.qml
    controls/LazyScreen.qml
    controls/LinkButton.qml
    controls/MessageLine.qml
    controls/Pressable.qml
    controls/ScreenPage.qml
    controls/ScrollMark.qml
    controls/ScrollPage.qml
    controls/Symbol.qml
    controls/TargetIcon.qml
    controls/TextBox.qml
    controls/TextPad.qml
    controls/Toggle.qml
)
