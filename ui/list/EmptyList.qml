// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// In place of the rows: what to do while there is no shortcut, or none that the filter finds.
FocusScope {
    id: empty

    property string filter
    readonly property bool filtered: filter !== ""

    signal add

    Column {
        anchors.centerIn: parent
        width: parent.width - 2 * 32
        spacing: 14

        Rectangle {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 72
            height: 72
            radius: 36
            color: Theme.surface
            border.width: 1
            border.color: Theme.border

            Symbol {
                anchors.centerIn: parent
                name: empty.filtered ? "search" : "key"
                color: Theme.accent
                size: 34
            }
        }

        Text {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: empty.filtered ? qsTr("No shortcut is called “%1”").arg(empty.filter) : qsTr("One key for each thing you use")
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            maximumLineCount: 3
            elide: Text.ElideRight
            color: Theme.text
            font.pixelSize: Theme.titleSize
            font.bold: true

            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        Text {
            width: parent.width
            visible: !empty.filtered
            horizontalAlignment: Text.AlignHCenter
            text: qsTr("Pick an application, a file or a folder, press the keys for it, and jump there from anywhere.")
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.secondaryText
            font.pixelSize: Theme.textSize
        }

        ActionButton {
            objectName: "emptyAdd"
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(implicitWidth, parent.width)
            focus: true
            kind: "primary"
            symbol: "add"
            text: empty.filtered ? qsTr("Add “%1”").arg(empty.filter) : qsTr("Add your first shortcut")
            onPressed: empty.add()
        }

        Text {
            width: parent.width
            visible: !empty.filtered
            horizontalAlignment: Text.AlignHCenter
            text: qsTr("or drop a file or folder here")
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.secondaryText
            font.pixelSize: Theme.smallSize
        }
    }
}
