// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtQuick.Layouts
import Skipnest

// The frame of a popover screen: a head with a title, the way back and room for buttons, and the
// content below it.
FocusScope {
    id: page

    property string title
    property bool canGoBack: true
    // Buttons at the right end of the head.
    property alias actions: actionRow.data
    default property alias content: body.data

    signal back

    // Of the loader that made the screen; what in the screen gets the keyboard says so itself.
    focus: true

    Accessible.role: Accessible.Pane
    Accessible.name: page.title

    RowLayout {
        id: head

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.leftMargin: page.canGoBack ? Theme.spacing : Theme.margin
        anchors.rightMargin: Theme.spacing
        height: 52
        spacing: Theme.spacing

        IconButton {
            visible: page.canGoBack
            symbol: "back"
            name: qsTr("Back")
            onPressed: page.back()
        }

        Text {
            Layout.fillWidth: true
            text: page.title
            textFormat: Text.PlainText
            elide: Text.ElideRight
            color: Theme.text
            font.pixelSize: Theme.titleSize
            font.bold: true

            Accessible.role: Accessible.Heading
            Accessible.name: page.title
        }

        RowLayout {
            id: actionRow

            spacing: 2
        }
    }

    Rectangle {
        id: line

        anchors.top: head.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        height: 1
        color: Theme.border
    }

    Item {
        id: body

        anchors.top: line.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        clip: true
    }
}
