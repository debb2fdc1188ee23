// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// A combo in large keys, for the one moment when it is all there is to look at.
Row {
    id: caps

    property var keys: []

    spacing: 10

    Accessible.role: Accessible.StaticText
    Accessible.name: caps.keys.join("+")

    Repeater {
        model: caps.keys

        Rectangle {
            id: cap

            required property string modelData

            width: Math.max(52, label.implicitWidth + 28)
            height: 52
            radius: Theme.radius
            color: Theme.surface
            border.width: 1
            border.color: Theme.border

            // The side of the cap that faces the person.
            Rectangle {
                anchors.left: parent.left
                anchors.right: parent.right
                anchors.bottom: parent.bottom
                anchors.margins: 1
                height: 5
                radius: Theme.radius
                color: Theme.border
            }

            Text {
                id: label

                anchors.centerIn: parent
                anchors.verticalCenterOffset: -2
                text: cap.modelData
                textFormat: Text.PlainText
                color: Theme.text
                font.pixelSize: 19
                font.bold: true
            }
        }
    }
}
