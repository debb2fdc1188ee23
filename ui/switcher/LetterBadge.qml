// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// The letter that stands for a tab.
Rectangle {
    id: badge

    required property string letter

    width: 24
    height: 24
    radius: 6
    color: Theme.hover

    Text {
        anchors.centerIn: parent
        text: badge.letter
        textFormat: Text.PlainText
        color: Theme.secondaryText
        font.pixelSize: 13
        font.bold: true
    }
}
