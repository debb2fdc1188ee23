// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// The banner above the list: a sentence, what can be done about it, and a way to close it.
Rectangle {
    id: line

    required property ListBanner banner
    readonly property color ink: banner.kind === "danger" ? Theme.danger : banner.kind === "warning" ? Theme.warning : banner.kind === "success" ? Theme.success : Theme.accent

    visible: banner.text !== ""
    implicitHeight: visible ? content.height + 2 * 10 : 0
    height: implicitHeight
    radius: Theme.radius
    color: Theme.surface
    border.width: 1
    border.color: ink

    Accessible.role: Accessible.AlertMessage
    Accessible.name: banner.text

    Symbol {
        x: 12
        y: 11
        name: line.banner.kind === "success" ? "check" : line.banner.kind === "info" ? "info" : "warning"
        color: line.ink
        size: 18
    }

    Column {
        id: content

        anchors.left: parent.left
        anchors.leftMargin: 40
        anchors.right: close.left
        anchors.rightMargin: 4
        y: 10
        spacing: 8

        Text {
            objectName: "bannerText"
            width: parent.width
            text: line.banner.text
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.text
            font.pixelSize: Theme.textSize - 1
        }

        Flow {
            width: parent.width
            spacing: 8

            Repeater {
                model: line.banner.actions

                ActionButton {
                    required property int index
                    required property string modelData

                    objectName: "bannerAction" + index
                    text: modelData
                    onPressed: line.banner.act(index) // qmllint disable unqualified
                }
            }
        }
    }

    IconButton {
        id: close

        objectName: "bannerClose"
        anchors.right: parent.right
        anchors.rightMargin: 3
        y: 3
        symbol: "clear"
        name: qsTr("Close")
        onPressed: line.banner.dismiss()
    }
}
