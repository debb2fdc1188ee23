// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// On or off. Asks to be changed (`toggled`) and shows what `checked` says.
Pressable {
    id: toggle

    property bool checked

    signal toggled(bool checked)

    implicitWidth: 40
    implicitHeight: 22
    onPressed: toggle.toggled(!toggle.checked)

    Accessible.role: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: toggle.checked
    Accessible.onToggleAction: toggle.toggled(!toggle.checked)

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: toggle.checked ? Theme.accent : Theme.window
        border.width: 1
        border.color: toggle.checked ? Theme.accent : Theme.secondaryText
    }

    Rectangle {
        x: toggle.checked ? parent.width - width - 3 : 3
        anchors.verticalCenter: parent.verticalCenter
        width: 16
        height: 16
        radius: 8
        color: toggle.checked ? Theme.accentText : Theme.secondaryText

        Behavior on x {
            enabled: Theme.moves

            NumberAnimation {
                duration: 90
            }
        }
    }

    FocusRing {
        radius: height / 2
    }
}
