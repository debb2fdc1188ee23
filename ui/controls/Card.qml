// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtQuick.Layouts
import Skipnest

// A group of related things with a heading above it.
ColumnLayout {
    id: card

    property string title
    default property alias content: column.data

    spacing: 6

    Text {
        visible: card.title !== ""
        Layout.fillWidth: true
        Layout.leftMargin: 2
        text: card.title
        textFormat: Text.PlainText
        elide: Text.ElideRight
        color: Theme.secondaryText
        font.pixelSize: Theme.smallSize
        font.bold: true

        Accessible.role: Accessible.Heading
        Accessible.name: card.title
    }

    Rectangle {
        Layout.fillWidth: true
        implicitHeight: column.implicitHeight + 2 * 12
        radius: Theme.radius
        color: Theme.surface
        border.width: 1
        border.color: Theme.border

        ColumnLayout {
            id: column

            anchors.fill: parent
            anchors.margins: 12
            spacing: 10
        }
    }
}
