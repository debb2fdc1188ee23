// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// The tabs of one window as chips, in as many columns as there is room for.
GridView {
    id: chips

    required property SwitcherBarModel bar
    readonly property int gap: 8
    property int hovered: -1

    // Half a gap lies around the outermost; a row that is cut off would not be legible.
    readonly property int room: parent.height + gap

    width: bar.chipColumns * cellWidth
    height: contentHeight > room ? Math.max(1, Math.floor(room / cellHeight)) * cellHeight : room
    cellWidth: bar.chipWidth + gap
    cellHeight: 40 + gap
    cacheBuffer: 0
    clip: contentHeight > height
    boundsBehavior: Flickable.StopAtBounds
    keyNavigationEnabled: false
    model: bar.tabs
    currentIndex: bar.selectedTab
    // A highlight that need not move takes the view along only where both are near.
    onCurrentIndexChanged: positionViewAtIndex(currentIndex, GridView.Contain)
    highlightMoveDuration: Theme.moves && bar.settled && visible ? 110 : 0
    highlight: SelectionRing {
        gap: 8
        thickness: 2
    }
    onVisibleChanged: hovered = -1

    Accessible.role: Accessible.List
    Accessible.name: bar.drillName

    delegate: Item {
        id: chip

        required property int index
        required property string title
        required property string letter
        readonly property bool isCurrent: GridView.isCurrentItem

        objectName: "chip" + index
        width: chips.cellWidth // qmllint disable unqualified
        height: chips.cellHeight // qmllint disable unqualified

        Accessible.role: Accessible.ListItem
        Accessible.name: chip.title
        Accessible.selectable: true
        Accessible.selected: chip.isCurrent
        Accessible.focused: chip.isCurrent && chip.visible
        Accessible.onPressAction: chips.bar.pickTab(chip.index) // qmllint disable unqualified

        Rectangle {
            anchors.fill: parent
            anchors.margins: 4
            radius: Theme.radius + 2
            color: chip.isCurrent || chips.hovered === chip.index ? Theme.hover : Theme.surface // qmllint disable unqualified
            border.width: 1
            border.color: Theme.border

            LetterBadge {
                id: badge

                x: 8
                anchors.verticalCenter: parent.verticalCenter
                letter: chip.letter
                color: chip.isCurrent ? Theme.surface : Theme.hover
            }

            Text {
                anchors.left: badge.right
                anchors.right: parent.right
                anchors.leftMargin: 8
                anchors.rightMargin: 10
                anchors.verticalCenter: parent.verticalCenter
                horizontalAlignment: Text.AlignLeft
                text: chip.title
                textFormat: Text.PlainText
                maximumLineCount: 1
                elide: Text.ElideRight
                color: Theme.text
                font.pixelSize: 13
            }
        }
    }

    Connections {
        target: chips.bar

        function onShown() {
            chips.positionViewAtIndex(chips.currentIndex, GridView.Contain);
        }
    }

    MouseArea {
        parent: chips.contentItem
        anchors.fill: parent
        z: 3
        hoverEnabled: true
        onClicked: mouse => chips.bar.pickTab(chips.indexAt(mouse.x, mouse.y))
        onPositionChanged: mouse => {
            if (chips.bar.pointerMoved(mapToGlobal(mouse.x, mouse.y)))
                chips.hovered = chips.indexAt(mouse.x, mouse.y);
        }
        onExited: chips.hovered = -1
    }

    ScrollMark {
        flickable: chips
        parent: chips.parent
        anchors.rightMargin: -12
        visible: chips.visible && chips.contentHeight > chips.height
    }
}
