// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// A button that is only a symbol. Its name is read to those who do not see it, and shown while the
// pointer rests on it.
Pressable {
    id: button

    property string symbol
    property color color: Theme.secondaryText

    implicitWidth: 34
    implicitHeight: 34

    Rectangle {
        anchors.fill: parent
        radius: Theme.radius
        color: button.hovered || button.held ? Theme.hover : "transparent"
    }

    Symbol {
        anchors.centerIn: parent
        name: button.symbol
        color: button.hovered ? Theme.text : button.color
        size: 18
    }

    FocusRing {
        gap: 0
    }

    Hint {
        text: button.name
        shown: button.hovered
    }
}
