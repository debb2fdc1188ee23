// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// A sentence that the person should see: "info", "success", "warning" or "danger". Hidden while it
// has no text. Assistive programs hear of it when it changes.
Rectangle {
    id: line

    property string text
    property string kind: "info"
    property bool closable: false
    readonly property color ink: kind === "danger" ? Theme.danger : kind === "warning" ? Theme.warning : kind === "success" ? Theme.success : Theme.secondaryText

    visible: text !== ""
    implicitWidth: 200
    implicitHeight: visible ? Math.max(34, label.implicitHeight + 16) : 0
    height: implicitHeight
    radius: Theme.radius
    color: Theme.surface
    border.width: 1
    border.color: ink

    Accessible.role: Accessible.AlertMessage
    Accessible.name: line.text

    Symbol {
        id: mark

        x: 10
        y: 9
        name: line.kind === "success" ? "check" : line.kind === "info" ? "info" : "warning"
        color: line.ink
        size: 16
    }

    Text {
        id: label

        anchors.left: mark.right
        anchors.leftMargin: 8
        anchors.right: parent.right
        anchors.rightMargin: line.closable ? 36 : 10
        anchors.verticalCenter: parent.verticalCenter
        text: line.text
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: line.ink
        font.pixelSize: Theme.textSize - 1
    }

    IconButton {
        anchors.right: parent.right
        y: 0
        visible: line.closable
        symbol: "clear"
        name: qsTr("Close")
        onPressed: line.text = ""
    }
}
