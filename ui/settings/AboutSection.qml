// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtQuick.Layouts
import Skipnest

// The program's version, and what of it works on this machine.
Card {
    id: about

    required property SettingsModel settings

    title: qsTr("About")

    SettingText {
        objectName: "version"
        title: about.settings.version
        description: qsTr("`skipnest help` in a terminal lists what can be done from there; `skipnest doctor` says what follows here.")
    }

    SettingText {
        Layout.topMargin: 4
        title: qsTr("What works here")
    }

    Repeater {
        model: about.settings.availability

        // qmllint disable unqualified
        RowLayout {
            id: entry

            required property int index
            required property string title
            required property string state
            required property string reason
            required property string remedy

            readonly property bool works: state === "available"

            objectName: "works" + index
            Layout.fillWidth: true
            spacing: 8

            Accessible.role: Accessible.ListItem
            Accessible.name: title + ": " + (works ? qsTr("works") : reason + " " + remedy)

            Symbol {
                Layout.alignment: Qt.AlignTop
                name: entry.works ? "check" : "warning"
                color: entry.works ? Theme.success : entry.state === "limited" ? Theme.warning : Theme.danger
                size: 16
            }

            ColumnLayout {
                Layout.fillWidth: true
                spacing: 2

                Text {
                    Layout.fillWidth: true
                    text: entry.title
                    textFormat: Text.PlainText
                    wrapMode: Text.Wrap
                    color: Theme.text
                    font.pixelSize: Theme.textSize - 1
                }

                Text {
                    Layout.fillWidth: true
                    visible: text !== ""
                    text: (entry.reason + " " + entry.remedy).trim()
                    textFormat: Text.PlainText
                    wrapMode: Text.Wrap
                    color: Theme.secondaryText
                    font.pixelSize: Theme.smallSize
                }
            }
        }
        // qmllint enable unqualified
    }

    ActionButton {
        objectName: "copyReport"
        symbol: "copy"
        text: qsTr("Copy for a report")
        onPressed: about.settings.copyReport()
    }
}
