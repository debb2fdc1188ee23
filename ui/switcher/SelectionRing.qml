// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// Around what is chosen in a view of the bar, as its highlight: it slides from one to the next.
Item {
    // The cell is larger than what is in it.
    property real gap: 0

    z: 1

    Rectangle {
        anchors.fill: parent
        anchors.margins: parent.gap / 2
        radius: Theme.radius + 2
        color: "transparent"
        border.width: 3
        border.color: Theme.accent
    }
}
