// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// A combo as keys: one cap a key.
Row {
    id: badge

    property var keys: []
    property bool muted: false

    spacing: 3

    Accessible.role: Accessible.StaticText
    Accessible.name: badge.keys.join("+")

    Repeater {
        model: badge.keys

        Rectangle {
            required property string modelData

            width: Math.max(22, label.implicitWidth + 10)
            height: 22
            radius: 4
            color: Theme.window
            border.width: 1
            border.color: Theme.border

            Text {
                id: label

                anchors.centerIn: parent
                text: parent.modelData
                textFormat: Text.PlainText
                color: badge.muted ? Theme.secondaryText : Theme.text // qmllint disable unqualified
                font.pixelSize: Theme.smallSize
                font.strikeout: badge.muted // qmllint disable unqualified
            }
        }
    }
}
