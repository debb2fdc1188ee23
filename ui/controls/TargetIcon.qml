// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// The picture of an application, file or folder, or its first letter where the machine has none.
Item {
    id: icon

    required property string path
    required property string title
    property int size: 28

    implicitWidth: size
    implicitHeight: size

    Accessible.ignored: true

    Rectangle {
        anchors.fill: parent
        visible: picture.implicitWidth <= 1
        radius: Theme.radius
        color: Theme.hover

        Text {
            anchors.centerIn: parent
            text: icon.title.length > 0 ? String.fromCodePoint(icon.title.codePointAt(0)).toUpperCase() : "?"
            textFormat: Text.PlainText
            color: Theme.secondaryText
            font.pixelSize: icon.size * 0.5
            font.bold: true
        }
    }

    Image {
        id: picture

        anchors.fill: parent
        visible: implicitWidth > 1
        sourceSize: Qt.size(icon.size, icon.size)
        source: icon.path === "" ? "" : "image://icons/" + encodeURIComponent(icon.path)
        fillMode: Image.PreserveAspectFit
    }
}
