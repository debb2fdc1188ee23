// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// Where one is among a few steps: a dot a step.
Row {
    id: mark

    required property int position // from 0
    required property int count

    spacing: 8

    Accessible.role: Accessible.ProgressBar
    Accessible.name: qsTr("Step %1 of %2").arg(mark.position + 1).arg(mark.count)

    Repeater {
        model: mark.count

        Rectangle {
            required property int index

            width: index === mark.position ? 22 : 8 // qmllint disable unqualified
            height: 8
            radius: 4
            color: index <= mark.position ? Theme.accent : Theme.border // qmllint disable unqualified
        }
    }
}
