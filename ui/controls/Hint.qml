// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// A short text below a control while the pointer is on it, kept inside the window.
Rectangle {
    id: hint

    property string text
    property bool shown

    visible: shown && text !== ""
    z: 100
    y: parent ? parent.height + 4 : 0
    x: {
        if (!parent || !visible)
            return 0;
        const left = parent.mapToItem(null, 0, 0).x;
        const wanted = left + (parent.width - width) / 2;
        const room = parent.Window.width;
        return Math.max(8, Math.min(wanted, room - width - 8)) - left;
    }
    width: label.implicitWidth + 16
    height: label.implicitHeight + 8
    radius: 4
    color: Theme.text

    Text {
        id: label

        anchors.centerIn: parent
        text: hint.text
        textFormat: Text.PlainText
        color: Theme.window
        font.pixelSize: Theme.smallSize
    }
}
