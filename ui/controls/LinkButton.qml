// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// A small thing to do, in the line of a text.
Pressable {
    id: link

    property string text

    name: text
    implicitWidth: label.implicitWidth
    implicitHeight: label.implicitHeight

    Text {
        id: label

        text: link.text
        textFormat: Text.PlainText
        color: Theme.accent
        font.pixelSize: Theme.smallSize
        font.underline: link.hovered
    }

    FocusRing {}
}
