// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtQuick.Layouts
import Skipnest

// What a setting is called and what it does.
ColumnLayout {
    id: texts

    property string title
    property string description
    property color color: Theme.secondaryText

    Layout.fillWidth: true
    spacing: 2

    Text {
        Layout.fillWidth: true
        visible: texts.title !== ""
        text: texts.title
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: Theme.text
        font.pixelSize: Theme.textSize
    }

    Text {
        Layout.fillWidth: true
        visible: texts.description !== ""
        text: texts.description
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: texts.color
        font.pixelSize: Theme.smallSize
    }
}
