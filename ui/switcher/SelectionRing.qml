// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// Around what is chosen in a view of the bar, as its highlight: it slides from one to the next.
Item {
    id: ring

    // The cell is larger than what is in it.
    property real gap: 0
    property int thickness: 3

    z: 2 // what is chosen stands at 1

    Rectangle {
        anchors.fill: parent
        anchors.margins: ring.gap / 2
        radius: Theme.radius + 2
        color: "transparent"
        border.width: ring.thickness
        border.color: Theme.accent
    }
}
