// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtQuick.Layouts
import Skipnest

// A folder is picked, and the file is written there at once.
ScreenPage {
    id: root

    required property PopoverModel popover
    readonly property ExportModel exporter: popover.exporter

    title: qsTr("Export")
    onBack: root.popover.back()

    ScrollPage {
        anchors.fill: parent

        Column {
            width: parent.width
            spacing: 4

            Text {
                width: parent.width
                text: qsTr("Pick a folder. This file is written there:")
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: Theme.text
                font.pixelSize: Theme.textSize
            }

            Text {
                objectName: "exportName"
                width: parent.width
                text: root.exporter.fileName
                textFormat: Text.PlainText
                wrapMode: Text.WrapAnywhere
                color: Theme.text
                font.pixelSize: Theme.textSize
                font.bold: true
            }

            Text {
                width: parent.width
                text: root.exporter.contents
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: Theme.secondaryText
                font.pixelSize: Theme.smallSize
            }
        }

        Column {
            width: parent.width
            spacing: 6

            Repeater {
                model: root.exporter.destinations

                // qmllint disable unqualified
                FileChoice {
                    required property int index

                    objectName: "destination" + index
                    width: parent.width
                    focus: index === 0
                    symbol: "folder"
                    tailSymbol: "export"
                    onPressed: root.exporter.exportTo(index)
                }
                // qmllint enable unqualified
            }
        }

        MessageLine {
            objectName: "exportMessage"
            width: parent.width
            text: root.exporter.message
            kind: root.exporter.path !== "" ? "success" : "danger"
        }

        ActionButton {
            objectName: "copyPath"
            visible: root.exporter.path !== ""
            symbol: "copy"
            text: qsTr("Copy path")
            onPressed: root.exporter.copyPath()
        }
    }
}
