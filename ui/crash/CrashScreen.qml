// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtQuick.Layouts
import Skipnest

// What would be sent about a crash, before any of it is.
ScreenPage {
    id: root

    required property PopoverModel popover
    readonly property CrashReportModel report: popover.crash

    title: qsTr("Crash report")
    onBack: root.popover.back()

    Connections {
        target: root.report

        // Answered elsewhere, or not wanted any more.
        function onChanged() {
            if (!root.report.isWaiting && root.visible)
                root.popover.back();
        }
    }

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: Theme.margin
        spacing: 12

        Text {
            Layout.fillWidth: true
            text: qsTr("Skipnest quit unexpectedly last time. This report would help to mend it.")
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.text
            font.pixelSize: Theme.textSize

            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        Text {
            id: caption

            Layout.fillWidth: true
            Layout.topMargin: 4
            text: qsTr("Exactly this would be sent:")
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.secondaryText
            font.pixelSize: Theme.smallSize
            font.bold: true
        }

        TextPad {
            objectName: "crashPreview"
            Layout.fillWidth: true
            Layout.fillHeight: true
            name: caption.text
            readOnly: true
            isCode: true
            text: root.report.preview
        }

        Text {
            Layout.fillWidth: true
            text: qsTr("No file names, no texts and no keys of yours. Once you have sent one, later reports go without asking; the settings turn them off.")
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.secondaryText
            font.pixelSize: Theme.smallSize

            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.spacing

            Item {
                Layout.fillWidth: true
            }

            ActionButton {
                objectName: "discardCrash"
                text: qsTr("Don't send")
                onPressed: root.report.discard()
            }

            ActionButton {
                objectName: "sendCrash"
                kind: "primary"
                focus: true
                text: qsTr("Send")
                onPressed: root.report.send()
            }
        }
    }
}
