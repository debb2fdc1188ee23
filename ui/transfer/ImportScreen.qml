// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtQuick.Layouts
import Skipnest

// A file is picked, what it would change is shown, and only then it is imported.
ScreenPage {
    id: root

    required property PopoverModel popover
    readonly property ImportModel importer: popover.importer

    title: qsTr("Import")
    onBack: root.popover.back()

    ScrollPage {
        id: page

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: result.top

        Text {
            width: parent.width
            text: qsTr("Pick a Skipnest export - files are named like “Skipnest-Export-2026-07-24.json”.")
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.text
            font.pixelSize: Theme.textSize
        }

        Text {
            objectName: "noCandidates"
            width: parent.width
            visible: candidates.count === 0
            text: qsTr("No export files found yet - export one first, or type a file name.")
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.secondaryText
            font.pixelSize: Theme.textSize
        }

        Column {
            width: parent.width
            spacing: 6
            visible: candidates.count > 0

            Repeater {
                id: candidates

                model: root.importer.candidates

                // qmllint disable unqualified
                FileChoice {
                    required property int index
                    required property string path

                    objectName: "candidate" + index
                    width: parent.width
                    isChosen: path === root.importer.chosenPath
                    onPressed: root.importer.choose(path)
                }
                // qmllint enable unqualified
            }
        }

        RowLayout {
            width: parent.width
            spacing: Theme.spacing

            TextBox {
                id: file

                objectName: "importFile"
                Layout.fillWidth: true
                focus: true
                symbol: "file"
                placeholder: qsTr("File name or path, or drop a file here")
                onAccepted: root.importer.choose(file.text)
            }

            ActionButton {
                objectName: "lookAtFile"
                enabled: file.text.trim() !== ""
                text: qsTr("Look")
                name: qsTr("Look into this file")
                onPressed: root.importer.choose(file.text)
            }
        }
    }

    ColumnLayout {
        id: result

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: Theme.margin
        spacing: Theme.spacing

        MessageLine {
            objectName: "importMessage"
            Layout.fillWidth: true
            text: root.importer.message
            kind: root.importer.messageKind
        }

        Text {
            objectName: "importPreview"
            Layout.fillWidth: true
            visible: root.importer.canImport
            text: qsTr("%1: %2").arg(root.importer.chosenName).arg(root.importer.preview)
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.text
            font.pixelSize: Theme.textSize
        }

        ActionButton {
            objectName: "importButton"
            Layout.fillWidth: true
            visible: root.importer.canImport
            kind: "primary"
            text: qsTr("Import")
            onPressed: root.importer.importChosen()
        }
    }
}
