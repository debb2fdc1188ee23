// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// A target that the search found.
Item {
    id: row

    required property int index
    required property string path
    required property string name
    required property string place
    required property bool isTaken

    property bool current

    signal chosen

    height: 48

    Accessible.role: Accessible.ListItem
    Accessible.name: row.name
    Accessible.description: row.isTaken ? qsTr("%1, has a shortcut").arg(row.place) : row.place
    Accessible.focusable: true
    Accessible.focused: row.current
    Accessible.onPressAction: row.chosen()

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: 8
        anchors.rightMargin: 8
        radius: Theme.radius
        color: row.current ? Theme.hover : area.containsMouse ? Theme.surface : "transparent"
        border.width: row.current ? 1 : 0
        border.color: Theme.accent
    }

    MouseArea {
        id: area

        anchors.fill: parent
        hoverEnabled: true
        cursorShape: Qt.PointingHandCursor
        onClicked: row.chosen()
    }

    TargetIcon {
        id: icon

        x: 20
        anchors.verticalCenter: parent.verticalCenter
        path: row.path
        title: row.name
        size: 30
    }

    Column {
        anchors.left: icon.right
        anchors.leftMargin: 12
        anchors.right: taken.left
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        spacing: 1

        Text {
            width: parent.width
            horizontalAlignment: Text.AlignLeft
            text: row.name
            textFormat: Text.PlainText
            elide: Text.ElideRight
            color: Theme.text
            font.pixelSize: Theme.textSize
            font.bold: row.current
        }

        Text {
            width: parent.width
            horizontalAlignment: Text.AlignLeft
            text: row.place
            textFormat: Text.PlainText
            elide: Text.ElideMiddle
            color: Theme.secondaryText
            font.pixelSize: Theme.smallSize
        }
    }

    Text {
        id: taken

        anchors.right: parent.right
        anchors.rightMargin: 20
        anchors.verticalCenter: parent.verticalCenter
        width: row.isTaken ? implicitWidth : 0
        visible: row.isTaken
        text: qsTr("has a shortcut")
        textFormat: Text.PlainText
        color: Theme.secondaryText
        font.pixelSize: Theme.smallSize
    }
}
