// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// What every button shares: pressed by pointer, Return, Enter or Space, reached by Tab, and known
// to assistive programs by its name.
Item {
    id: pressable

    property string name
    property bool hovered: area.containsMouse
    property bool held: area.pressed
    property string toolTip

    signal pressed

    activeFocusOnTab: enabled
    opacity: enabled ? 1 : 0.5

    Accessible.role: Accessible.Button
    Accessible.name: pressable.name
    Accessible.focusable: true
    Accessible.onPressAction: pressable.pressed()

    // A key that is held since it did something else, such as being recorded, presses nothing.
    function pressByKey(event: var): void {
        if (!event.isAutoRepeat)
            pressable.pressed();
    }

    Keys.onReturnPressed: event => pressable.pressByKey(event)
    Keys.onEnterPressed: event => pressable.pressByKey(event)
    Keys.onSpacePressed: event => pressable.pressByKey(event)

    MouseArea {
        id: area

        anchors.fill: parent
        hoverEnabled: true
        cursorShape: Qt.PointingHandCursor
        onClicked: pressable.pressed()
    }
}
