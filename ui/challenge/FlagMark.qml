// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// A country's flag, or the letters of its code where no font of this machine has flags. Empty for
// none. Whoever shows it also says the country's name.
Item {
    id: mark

    property string code
    property int size: 18
    property color color: Theme.secondaryText
    readonly property bool isDrawn: Flags.family !== ""

    implicitWidth: Math.round(size * 1.5)
    implicitHeight: size + 4

    Text {
        anchors.centerIn: parent
        visible: mark.isDrawn
        text: Flags.text(mark.code)
        textFormat: Text.PlainText
        font.family: Flags.family
        font.pixelSize: mark.size
    }

    Rectangle {
        anchors.centerIn: parent
        width: parent.width
        height: mark.size
        visible: !mark.isDrawn && mark.code !== ""
        radius: 3
        color: "transparent"
        border.width: 1
        border.color: mark.color

        Text {
            anchors.centerIn: parent
            text: mark.code.toUpperCase()
            textFormat: Text.PlainText
            color: mark.color
            font.pixelSize: Math.round(mark.size * 0.62)
            font.bold: true
        }
    }
}
