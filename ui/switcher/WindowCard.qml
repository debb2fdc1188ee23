// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// One window: its picture, or the icon of its application while there is none, over its title.
Item {
    id: card

    required property int index
    required property string name
    required property string title
    required property string icon
    required property int tabs
    required property bool isFocused
    required property var picture
    property real gap
    readonly property bool isCurrent: GridView.isCurrentItem

    signal picked

    objectName: "card" + index

    Accessible.role: Accessible.ListItem
    Accessible.name: card.name
    Accessible.description: card.isFocused ? qsTr("In front") : ""
    Accessible.selectable: true
    Accessible.selected: card.isCurrent
    Accessible.focused: card.isCurrent && card.visible
    Accessible.onPressAction: card.picked()

    Rectangle {
        anchors.fill: parent
        anchors.margins: card.gap / 2
        radius: Theme.radius + 2
        color: card.isCurrent ? Theme.hover : Theme.surface
        border.width: 1
        border.color: Theme.border

        Rectangle {
            id: stage

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: parent.top
            anchors.margins: 8
            height: Math.round(width * 0.625)
            radius: 5
            color: preview.empty ? (card.isCurrent ? Theme.surface : Theme.window) : "transparent"

            TargetIcon {
                anchors.centerIn: parent
                visible: preview.empty
                path: card.icon
                title: card.name
                size: 64
            }

            WindowPreview {
                id: preview

                objectName: "preview"
                anchors.fill: parent
                anchors.margins: -5 // its shadow
                picture: card.picture // qmllint disable type
            }

            Rectangle {
                objectName: "inFront"
                visible: card.isFocused
                anchors.left: parent.left
                anchors.bottom: parent.bottom
                anchors.margins: 6
                width: front.implicitWidth + 14
                height: 20
                radius: 10
                color: Theme.window
                border.width: 1
                border.color: Theme.border

                Text {
                    id: front

                    anchors.centerIn: parent
                    text: qsTr("In front")
                    textFormat: Text.PlainText
                    color: Theme.text
                    font.pixelSize: 11
                }
            }

            Rectangle {
                objectName: "tabCount"
                visible: card.tabs >= 0
                anchors.right: parent.right
                anchors.bottom: parent.bottom
                anchors.margins: 6
                width: count.implicitWidth + 12
                height: 20
                radius: 10
                color: Theme.accent

                Text {
                    id: count

                    anchors.centerIn: parent
                    text: qsTr("%n tabs", "", Math.max(0, card.tabs))
                    textFormat: Text.PlainText
                    color: Theme.accentText
                    font.pixelSize: 11
                    font.bold: true
                }
            }
        }

        Text {
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: stage.bottom
            anchors.bottom: parent.bottom
            anchors.leftMargin: 8
            anchors.rightMargin: 8
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            text: card.title
            textFormat: Text.PlainText
            maximumLineCount: 1
            // Of a path the end tells it from the others.
            elide: card.title.startsWith("/") || card.title.startsWith("~/") ? Text.ElideLeft : Text.ElideMiddle
            color: card.isCurrent ? Theme.text : Theme.secondaryText
            font.pixelSize: 13
        }
    }
}
