// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtQuick.Layouts

FocusScope {
    id: root

    readonly property int margin: 20

    implicitWidth: 420
    implicitHeight: content.implicitHeight + 2 * margin
    width: implicitWidth
    height: implicitHeight
    focus: true

    Keys.onEscapePressed: alert.chosen(alert.buttons.length - 1)

    Accessible.role: Accessible.AlertMessage
    Accessible.name: alert.message
    Accessible.description: alert.informativeText

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
                border.color: alert.warningColor

                Text {
                    anchors.centerIn: parent
                    text: "!"
                    color: alert.warningColor
                    font.pixelSize: 24
                    font.bold: true
                }
            }

            ColumnLayout {
                Layout.fillWidth: true
                spacing: 8

                Text {
                    Layout.fillWidth: true
                    text: alert.message
                    textFormat: Text.PlainText
                    color: alert.textColor
                    font.pixelSize: 16
                    font.bold: true
                    wrapMode: Text.Wrap
                }

                Text {
                    Layout.fillWidth: true
                    text: alert.informativeText
                    textFormat: Text.PlainText
                    color: alert.secondaryTextColor
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
                model: alert.buttons

                Rectangle {
                    id: button

                    required property int index
                    required property string modelData
                    readonly property bool isDefault: index === 0

                    implicitWidth: Math.max(96, label.implicitWidth + 32)
                    implicitHeight: 36
                    radius: 8
                    color: isDefault ? alert.accentColor : alert.surfaceColor
                    border.width: 1
                    border.color: isDefault ? alert.accentColor : alert.borderColor
                    opacity: area.pressed ? 0.8 : 1
                    focus: isDefault
                    activeFocusOnTab: true

                    Accessible.role: Accessible.Button
                    Accessible.name: modelData
                    Accessible.onPressAction: alert.chosen(index)

                    Keys.onReturnPressed: alert.chosen(index)
                    Keys.onEnterPressed: alert.chosen(index)
                    Keys.onSpacePressed: alert.chosen(index)

                    Text {
                        id: label

                        anchors.centerIn: parent
                        text: button.modelData
                        textFormat: Text.PlainText
                        color: button.isDefault ? alert.accentTextColor : alert.textColor
                        font.pixelSize: 14
                        font.bold: button.isDefault
                    }

                    Rectangle {
                        anchors.fill: parent
                        anchors.margins: -3
                        radius: parent.radius + 3
                        color: "transparent"
                        border.width: 2
                        border.color: alert.accentColor
                        visible: button.activeFocus
                    }

                    MouseArea {
                        id: area

                        anchors.fill: parent
                        onClicked: alert.chosen(button.index)
                    }
                }
            }
        }
    }
}
