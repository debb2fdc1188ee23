// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// What the query finds, one below the other, with what matches marked.
ListView {
    id: list

    required property SwitcherBarModel bar
    property int hovered: -1

    reuseItems: true
    cacheBuffer: 0
    clip: contentHeight > height
    boundsBehavior: Flickable.StopAtBounds
    keyNavigationEnabled: false
    model: bar.results
    currentIndex: bar.selectedResult
    // A highlight that need not move takes the view along only where both are near.
    onCurrentIndexChanged: positionViewAtIndex(currentIndex, ListView.Contain)
    highlightMoveDuration: Theme.moves && bar.settled && visible ? 90 : 0
    highlightResizeDuration: 0
    highlight: SelectionRing {
        thickness: 2
    }
    onVisibleChanged: hovered = -1

    Accessible.role: Accessible.List
    Accessible.name: bar.query

    delegate: Item {
        id: row

        required property int index
        required property string name
        required property string title
        required property string domain
        required property string windowTitle
        required property string letter
        readonly property bool isCurrent: ListView.isCurrentItem

        objectName: "result" + index
        width: ListView.view.width
        height: 44

        Accessible.role: Accessible.ListItem
        Accessible.name: row.name
        Accessible.description: row.windowTitle
        Accessible.selectable: true
        Accessible.selected: row.isCurrent
        Accessible.focused: row.isCurrent && row.visible
        Accessible.onPressAction: list.bar.pickResult(row.index) // qmllint disable unqualified

        Rectangle {
            anchors.fill: parent
            radius: Theme.radius + 2
            color: row.isCurrent ? Theme.hover : list.hovered === row.index ? Theme.surface : "transparent" // qmllint disable unqualified
        }

        LetterBadge {
            id: badge

            x: 10
            anchors.verticalCenter: parent.verticalCenter
            letter: row.letter
            color: row.isCurrent ? Theme.surface : Theme.hover
        }

        Text {
            objectName: "foundTitle"
            anchors.left: badge.right
            anchors.right: places.left
            anchors.leftMargin: 10
            anchors.rightMargin: 16
            anchors.verticalCenter: parent.verticalCenter
            horizontalAlignment: Text.AlignLeft
            text: row.title
            textFormat: Text.StyledText
            maximumLineCount: 1
            wrapMode: Text.NoWrap
            elide: Text.ElideRight
            color: Theme.text
            font.pixelSize: Theme.textSize
        }

        Column {
            id: places

            anchors.right: parent.right
            anchors.rightMargin: 14
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(parent.width * 0.36, Math.max(where.implicitWidth, whose.implicitWidth))
            spacing: 1

            Text {
                id: where

                width: parent.width
                visible: row.domain !== ""
                horizontalAlignment: Text.AlignRight
                text: row.domain
                textFormat: Text.StyledText
                maximumLineCount: 1
                wrapMode: Text.NoWrap
                elide: Text.ElideRight
                color: Theme.text
                font.pixelSize: Theme.smallSize
            }

            Text {
                id: whose

                width: parent.width
                visible: row.windowTitle !== ""
                horizontalAlignment: Text.AlignRight
                text: row.windowTitle
                textFormat: Text.PlainText
                maximumLineCount: 1
                elide: Text.ElideMiddle
                color: Theme.secondaryText
                font.pixelSize: Theme.smallSize
            }
        }
    }

    Connections {
        target: list.bar

        function onShown() {
            list.positionViewAtIndex(list.currentIndex, ListView.Contain);
        }
    }

    MouseArea {
        parent: list.contentItem
        width: list.width
        height: list.contentHeight
        z: 3
        hoverEnabled: true
        onClicked: mouse => list.bar.pickResult(list.indexAt(mouse.x, mouse.y))
        onPositionChanged: mouse => {
            if (list.bar.pointerMoved(mapToGlobal(mouse.x, mouse.y)))
                list.hovered = list.indexAt(mouse.x, mouse.y);
        }
        onExited: list.hovered = -1
    }

    ScrollMark {
        flickable: list
        parent: list.parent
        anchors.rightMargin: -12
        visible: list.visible && list.contentHeight > list.height
    }
}
