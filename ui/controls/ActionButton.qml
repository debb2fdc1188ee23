// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// A button with a text. `kind` is "plain", "primary" (the one thing to do here) or "danger" (it
// removes something).
Pressable {
    id: button

    property string text
    property string kind: "plain"
    property string symbol
    readonly property color ink: kind === "primary" ? Theme.accentText : kind === "danger" ? Theme.danger : Theme.text

    name: text
    implicitWidth: Math.max(80, row.implicitWidth + 28)
    implicitHeight: Theme.controlHeight

    Rectangle {
        anchors.fill: parent
        radius: Theme.radius
        color: button.kind === "primary" ? Theme.accent : button.hovered ? Theme.hover : Theme.surface
        border.width: button.kind === "primary" ? 0 : 1
        border.color: button.kind === "danger" ? Theme.danger : Theme.border
        opacity: button.held ? 0.75 : 1
    }

    Row {
        id: row

        anchors.centerIn: parent
        spacing: 6

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            visible: button.symbol !== ""
            name: button.symbol
            color: button.ink
            size: 16
        }

        Text {
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, button.width > 0 ? button.width - 24 - (button.symbol !== "" ? 22 : 0) : implicitWidth)
            text: button.text
            textFormat: Text.PlainText
            elide: Text.ElideRight
            color: button.ink
            font.pixelSize: Theme.textSize
            font.bold: button.kind === "primary"
        }
    }

    FocusRing {}
}
