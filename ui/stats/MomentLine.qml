// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// Something to celebrate or to know, above the figures. It comes in softly, once.
Item {
    id: line

    required property StatisticsCardModel statistics
    readonly property bool isTip: statistics.momentKind === "tip"
    readonly property bool isShown: statistics.momentKind !== ""

    visible: isShown
    implicitHeight: isShown ? texts.height + 2 * 10 : 0

    Accessible.role: Accessible.AlertMessage
    Accessible.name: statistics.momentTitle + " " + statistics.momentText

    onIsShownChanged: if (line.isShown && Theme.moves)
        entrance.restart()

    ParallelAnimation {
        id: entrance

        NumberAnimation {
            target: texts
            property: "opacity"
            from: 0
            to: 1
            duration: 260
        }

        NumberAnimation {
            target: texts
            property: "scale"
            from: line.isTip ? 1 : 0.96
            to: 1
            duration: 260
            easing.type: Easing.OutCubic
        }
    }

    Column {
        id: texts

        anchors.left: parent.left
        anchors.leftMargin: 14
        anchors.right: close.left
        anchors.rightMargin: 4
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2
        transformOrigin: Item.Left

        Text {
            objectName: "momentTitle"
            width: parent.width
            text: line.statistics.momentTitle
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: line.isTip ? Theme.secondaryText : Theme.text
            font.pixelSize: line.isTip ? Theme.smallSize : Theme.textSize + 1
            font.bold: true
        }

        Text {
            objectName: "momentText"
            width: parent.width
            text: line.statistics.momentText
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: line.isTip ? Theme.text : Theme.secondaryText
            font.pixelSize: Theme.textSize - 1
        }
    }

    IconButton {
        id: close

        objectName: "momentClose"
        anchors.right: parent.right
        anchors.rightMargin: 4
        anchors.top: parent.top
        anchors.topMargin: 4
        symbol: "clear"
        name: qsTr("Close")
        onPressed: line.statistics.dismissMoment()
    }

    Rectangle {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: 14
        anchors.rightMargin: 14
        anchors.bottom: parent.bottom
        height: 1
        color: Theme.border
    }
}
