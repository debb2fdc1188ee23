// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// What the jumps brought, in two lines below the list; pressing it shows all of it.
Rectangle {
    id: card

    required property StatisticsCardModel statistics

    signal opened
    // A moment was closed, and with it what may have had the keyboard.
    signal momentClosed

    implicitHeight: moment.implicitHeight + 54
    radius: Theme.radius
    color: Theme.surface
    border.width: 1
    border.color: moment.isShown && !moment.isTip ? Theme.accent : Theme.border

    MomentLine {
        id: moment

        objectName: "moment"
        anchors.left: parent.left
        anchors.right: parent.right
        statistics: card.statistics
        onIsShownChanged: if (!moment.isShown && moment.activeFocus)
            card.momentClosed()
    }

    Pressable {
        id: figures

        objectName: "statisticsCard"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        height: 54
        name: card.statistics.headline + ", " + card.statistics.details
        onPressed: card.opened()

        Accessible.description: qsTr("Shows your jumps")

        Rectangle {
            anchors.fill: parent
            anchors.margins: 1
            radius: Theme.radius - 1
            color: figures.hovered || figures.held ? Theme.hover : "transparent"
        }

        WeekChart {
            id: chart

            x: 14
            anchors.verticalCenter: parent.verticalCenter
            width: 46
            height: 26
            labelled: false
            bars: card.statistics.bars
        }

        Column {
            anchors.left: chart.right
            anchors.leftMargin: 12
            anchors.right: mark.left
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            spacing: 2

            Text {
                objectName: "statisticsHeadline"
                width: parent.width
                text: card.statistics.headline
                textFormat: Text.PlainText
                elide: Text.ElideRight
                color: Theme.text
                font.pixelSize: Theme.textSize
                font.bold: true
            }

            Text {
                objectName: "statisticsDetails"
                width: parent.width
                text: card.statistics.details
                textFormat: Text.PlainText
                elide: Text.ElideRight
                color: Theme.secondaryText
                font.pixelSize: Theme.smallSize
            }
        }

        Symbol {
            id: mark

            anchors.right: parent.right
            anchors.rightMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            name: "next"
            color: Theme.secondaryText
            size: 16
        }

        FocusRing {
            gap: 0
        }
    }
}
