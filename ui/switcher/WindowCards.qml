// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// The windows, in rows. Only those in view exist.
GridView {
    id: grid

    required property SwitcherBarModel bar
    readonly property int gap: 12

    width: bar.cardColumns * cellWidth
    cellWidth: bar.cardWidth + gap
    cellHeight: bar.cardHeight + gap
    cacheBuffer: 0
    clip: contentHeight > height
    boundsBehavior: Flickable.StopAtBounds
    keyNavigationEnabled: false
    model: bar.windows
    currentIndex: bar.selectedWindow
    highlightMoveDuration: Theme.moves && bar.settled ? 110 : 0
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
        z: 2
        hoverEnabled: true
        onClicked: mouse => grid.bar.pickWindow(grid.indexAt(mouse.x, mouse.y))
        onPositionChanged: mouse => {
            if (grid.bar.pointerMoved(mapToGlobal(mouse.x, mouse.y)))
                grid.bar.hoverWindow(grid.indexAt(mouse.x, mouse.y));
        }
    }

    ScrollMark {
        flickable: grid
        anchors.rightMargin: 0
    }
}
