// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// One row of the targets to choose from.
Item {
    id: choice

    required property int index
    required property string path
    required property string name
    required property string detail
    required property bool marked // where Return would act
    required property bool chosen

    signal picked

    height: 44

    Accessible.role: Accessible.ListItem
    Accessible.name: choice.name
    Accessible.description: choice.detail
    Accessible.selected: choice.chosen
    Accessible.onPressAction: choice.picked()

    Rectangle {
        anchors.fill: parent
        radius: Theme.radius - 2
        color: choice.chosen || area.containsMouse ? Theme.hover : "transparent"
        border.width: choice.marked ? 2 : 0
        border.color: Theme.accent
    }

    TargetIcon {
        id: icon

        x: 8
        anchors.verticalCenter: parent.verticalCenter
        path: choice.path
        title: choice.name
    }

    Column {
        anchors.left: icon.right
        anchors.leftMargin: 10
        anchors.right: mark.left
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter

        Text {
            width: parent.width
            text: choice.name
            textFormat: Text.PlainText
            elide: Text.ElideRight
            color: Theme.text
            font.pixelSize: Theme.textSize
        }

        Text {
            width: parent.width
            text: choice.detail
            textFormat: Text.PlainText
            elide: Text.ElideMiddle
            color: Theme.secondaryText
            font.pixelSize: Theme.smallSize
        }
    }

    Symbol {
        id: mark

        anchors.right: parent.right
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        visible: choice.chosen
        name: "check"
        color: Theme.accent
    }

    MouseArea {
        id: area

        anchors.fill: parent
        hoverEnabled: true
        onClicked: choice.picked()
    }
}
