// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtQuick.Layouts
import Skipnest

// A figure, and what it counts.
ColumnLayout {
    id: figure

    property string value
    property string label

    Layout.fillWidth: true
    Layout.preferredWidth: 10
    Layout.alignment: Qt.AlignTop
    spacing: 2

    Accessible.role: Accessible.StaticText
    Accessible.name: figure.value + " " + figure.label

    Text {
        Layout.fillWidth: true
        text: figure.value
        textFormat: Text.PlainText
        horizontalAlignment: Text.AlignHCenter
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: Theme.textSize
        color: Theme.text
        font.pixelSize: 26
        font.bold: true
    }

    Text {
        Layout.fillWidth: true
        text: figure.label
        textFormat: Text.PlainText
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        color: Theme.secondaryText
        font.pixelSize: Theme.smallSize
    }
}
