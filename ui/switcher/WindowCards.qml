// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// The windows, in rows. Only those in view exist.
GridView {
    id: grid

    required property SwitcherBarModel bar
    readonly property int gap: 12

    // Half a gap lies around the outermost; a row that is cut off would not be legible.
    readonly property int room: parent.height + gap

    width: bar.cardColumns * cellWidth
    height: contentHeight > room ? Math.max(1, Math.floor(room / cellHeight)) * cellHeight : room
    cellWidth: bar.cardWidth + gap
    cellHeight: bar.cardHeight + gap
    cacheBuffer: 0
    clip: contentHeight > height
    boundsBehavior: Flickable.StopAtBounds
    keyNavigationEnabled: false
    model: bar.windows
    currentIndex: bar.selectedWindow
    // A highlight that need not move takes the view along only where both are near.
    onCurrentIndexChanged: positionViewAtIndex(currentIndex, GridView.Contain)
    highlightMoveDuration: Theme.moves && bar.settled && visible ? 110 : 0
    highlight: SelectionRing {
        gap: 12
    }

    Accessible.role: Accessible.List
    Accessible.name: bar.appName

    delegate: WindowCard {
        width: grid.cellWidth // qmllint disable unqualified
        height: grid.cellHeight // qmllint disable unqualified
        gap: 12
        onPicked: grid.bar.pickWindow(index) // qmllint disable unqualified
    }

    Connections {
        target: grid.bar

        function onShown() {
            grid.positionViewAtIndex(grid.currentIndex, GridView.Contain);
        }
    }

    MouseArea {
        parent: grid.contentItem
        anchors.fill: parent
        z: 3
        hoverEnabled: true
        onClicked: mouse => grid.bar.pickWindow(grid.indexAt(mouse.x, mouse.y))
        onPositionChanged: mouse => {
            if (grid.bar.pointerMoved(mapToGlobal(mouse.x, mouse.y)))
                grid.bar.hoverWindow(grid.indexAt(mouse.x, mouse.y));
        }
    }

    ScrollMark {
        flickable: grid
        parent: grid.parent
        anchors.rightMargin: -12
        visible: grid.visible && grid.contentHeight > grid.height
    }
}
