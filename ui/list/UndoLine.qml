// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// What was just removed, with the way back.
Rectangle {
    id: line

    property string text

    signal undo

    visible: text !== ""
    height: 44
    radius: Theme.radius
    color: Theme.text

    Accessible.role: Accessible.AlertMessage
    Accessible.name: line.text

    Text {
        anchors.left: parent.left
        anchors.leftMargin: 14
        anchors.right: button.left
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        text: line.text
        textFormat: Text.PlainText
        elide: Text.ElideRight
        color: Theme.window
        font.pixelSize: Theme.textSize
    }

    Pressable {
        id: button

        objectName: "undo"
        anchors.right: parent.right
        anchors.rightMargin: 6
        anchors.verticalCenter: parent.verticalCenter
        width: label.implicitWidth + 24
        height: 32
        name: qsTr("Undo")
        onPressed: line.undo()

        Accessible.description: qsTr("Ctrl+Z")

        Rectangle {
            anchors.fill: parent
            radius: Theme.radius - 2
            color: "transparent"
            border.width: button.activeFocus ? 2 : button.hovered ? 1 : 0
            border.color: Theme.window
        }

        Text {
            id: label

            anchors.centerIn: parent
            text: button.name
            textFormat: Text.PlainText
            color: Theme.window
            font.pixelSize: Theme.textSize
            font.bold: true
            font.underline: true
        }
    }
}
