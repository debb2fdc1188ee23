// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// A button of an alert: pressed by pointer, Return, Enter or Space.
Rectangle {
    id: button

    required property AlertContent alert
    required property string label
    required property bool isDefault

    signal pressed

    implicitWidth: Math.max(96, text.implicitWidth + 32)
    implicitHeight: 36
    radius: 8
    color: isDefault ? alert.accentColor : alert.surfaceColor
    border.width: 1
    border.color: isDefault ? alert.accentColor : alert.borderColor
    opacity: area.pressed ? 0.8 : 1
    focus: isDefault
    activeFocusOnTab: true

    Accessible.role: Accessible.Button
    Accessible.name: label
    Accessible.onPressAction: button.pressed()

    Keys.onReturnPressed: button.pressed()
    Keys.onEnterPressed: button.pressed()
    Keys.onSpacePressed: button.pressed()

    Text {
        id: text

        anchors.centerIn: parent
        text: button.label
        textFormat: Text.PlainText
        color: button.isDefault ? button.alert.accentTextColor : button.alert.textColor
        font.pixelSize: 14
        font.bold: button.isDefault
    }

    Rectangle {
        anchors.fill: parent
        anchors.margins: -4
        radius: parent.radius + 4
        color: "transparent"
        border.width: 2
        border.color: button.alert.accentColor
        visible: button.activeFocus
    }

    MouseArea {
        id: area

        anchors.fill: parent
        onClicked: button.pressed()
    }
}
