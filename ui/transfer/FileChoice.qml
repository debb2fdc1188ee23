// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// A file or folder to pick: its name and what is known of it.
Pressable {
    id: choice

    required property string name
    required property string detail
    property string symbol: "file"
    property string tailSymbol
    property bool isChosen: false

    implicitWidth: 200
    implicitHeight: 52

    Accessible.description: choice.detail
    Accessible.checked: choice.isChosen

    Rectangle {
        anchors.fill: parent
        radius: Theme.radius
        color: choice.hovered ? Theme.hover : Theme.surface
        border.width: choice.isChosen ? 2 : 1
        border.color: choice.isChosen ? Theme.accent : Theme.border
        opacity: choice.held ? 0.75 : 1
    }

    Symbol {
        id: mark

        x: 12
        anchors.verticalCenter: parent.verticalCenter
        name: choice.symbol
        color: choice.isChosen ? Theme.accent : Theme.secondaryText
        size: 20
    }

    Column {
        anchors.left: mark.right
        anchors.leftMargin: 12
        anchors.right: tail.left
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2

        Text {
            width: parent.width
            text: choice.name
            textFormat: Text.PlainText
            maximumLineCount: 1
            elide: Text.ElideMiddle
            color: Theme.text
            font.pixelSize: Theme.textSize
        }

        Text {
            width: parent.width
            visible: text !== ""
            text: choice.detail
            textFormat: Text.PlainText
            maximumLineCount: 1
            elide: Text.ElideMiddle
            color: Theme.secondaryText
            font.pixelSize: Theme.smallSize
        }
    }

    Symbol {
        id: tail

        anchors.right: parent.right
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        name: choice.isChosen ? "check" : choice.tailSymbol
        color: choice.isChosen ? Theme.accent : Theme.secondaryText
        size: 18
    }

    FocusRing {}
}
