// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// Drawn around the control that has the keyboard; a child of that control.
Rectangle {
    property real gap: 2

    anchors.fill: parent
    anchors.margins: -gap
    radius: Theme.radius + gap
    color: "transparent"
    border.width: 2
    border.color: Theme.accent
    visible: parent.activeFocus
    z: 1
}
