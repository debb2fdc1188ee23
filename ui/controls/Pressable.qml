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

    Keys.onReturnPressed: pressable.pressed()
    Keys.onEnterPressed: pressable.pressed()
    Keys.onSpacePressed: pressable.pressed()

    MouseArea {
        id: area

        anchors.fill: parent
        hoverEnabled: true
        cursorShape: Qt.PointingHandCursor
        onClicked: pressable.pressed()
    }
}
