// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtQuick.Layouts
import Skipnest

FocusScope {
    id: root

    required property AlertContent alert
    readonly property int margin: 20

    implicitWidth: 420
    implicitHeight: content.implicitHeight + 2 * margin
    width: implicitWidth
    height: implicitHeight
    focus: true

    Keys.onEscapePressed: root.alert.chosen(root.alert.buttons.length - 1)

    Accessible.role: Accessible.AlertMessage
    Accessible.name: root.alert.message
    Accessible.description: root.alert.informativeText

    ColumnLayout {
        id: content

        anchors.fill: parent
        anchors.margins: root.margin
        spacing: 16

        RowLayout {
            Layout.fillWidth: true
            spacing: 16

            Rectangle {
                Layout.alignment: Qt.AlignTop
                implicitWidth: 40
                implicitHeight: 40
                radius: 20
                color: "transparent"
                border.width: 2
                border.color: root.alert.warningColor

                Text {
                    anchors.centerIn: parent
                    text: "!"
                    color: root.alert.warningColor
                    font.pixelSize: 24
                    font.bold: true
                }
            }

            ColumnLayout {
                Layout.fillWidth: true
                spacing: 8

                Text {
                    Layout.fillWidth: true
                    text: root.alert.message
                    textFormat: Text.PlainText
                    color: root.alert.textColor
                    font.pixelSize: 16
                    font.bold: true
                    wrapMode: Text.Wrap
                }

                Text {
                    Layout.fillWidth: true
                    text: root.alert.informativeText
                    textFormat: Text.PlainText
                    color: root.alert.secondaryTextColor
                    font.pixelSize: 14
                    // A path is one long word; a very long one ends in an ellipsis.
                    wrapMode: Text.Wrap
                    maximumLineCount: 14
                    elide: Text.ElideRight
                }
            }
        }

        Row {
            Layout.alignment: Qt.AlignRight
            spacing: 10
            layoutDirection: Qt.RightToLeft

            Repeater {
                model: root.alert.buttons

                // Components of Qt 6.4 cannot be bound to the ids around them, so qmllint does not
                // see `root` from in here.
                AlertButton {
                    required property int index
                    required property string modelData

                    label: modelData
                    isDefault: index === 0
                    alert: root.alert // qmllint disable unqualified
                    onPressed: root.alert.chosen(index) // qmllint disable unqualified
                }
            }
        }
    }
}
