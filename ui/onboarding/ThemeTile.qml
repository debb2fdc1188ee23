// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// A theme to choose: a small list in its colours.
Column {
    id: tile

    required property var colors
    required property string name
    required property bool chosen
    required property bool focused

    signal picked

    spacing: 8

    Accessible.role: Accessible.RadioButton
    Accessible.name: tile.name
    Accessible.checkable: true
    Accessible.checked: tile.chosen
    Accessible.onPressAction: tile.picked()

    Rectangle {
        width: 128
        height: 84
        radius: Theme.radius
        color: tile.colors.window
        border.width: 1
        border.color: tile.colors.border

        Column {
            x: 12
            y: 12
            width: parent.width - 24
            spacing: 6

            Repeater {
                model: [0.55, 0.8, 0.4]

                Rectangle {
                    id: line

                    required property int index
                    required property real modelData

                    width: parent.width
                    height: 16
                    radius: 4
                    color: index === 0 ? tile.colors.accent : tile.colors.surface // qmllint disable unqualified

                    Rectangle {
                        x: 6
                        anchors.verticalCenter: parent.verticalCenter
                        width: (parent.width - 12) * line.modelData
                        height: 4
                        radius: 2
                        color: line.index === 0 ? tile.colors.window : tile.colors.secondaryText // qmllint disable unqualified
                    }
                }
            }
        }

        Rectangle {
            anchors.fill: parent
            anchors.margins: -4
            radius: Theme.radius + 4
            color: "transparent"
            border.width: tile.focused ? 3 : 2
            border.color: tile.focused ? Theme.accent : Theme.secondaryText
            visible: tile.chosen
        }

        MouseArea {
            anchors.fill: parent
            cursorShape: Qt.PointingHandCursor
            onClicked: tile.picked()
        }
    }

    Text {
        anchors.horizontalCenter: parent.horizontalCenter
        text: tile.name
        textFormat: Text.PlainText
        color: tile.chosen ? Theme.text : Theme.secondaryText
        font.pixelSize: Theme.textSize
        font.bold: tile.chosen
    }
}
