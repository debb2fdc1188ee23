// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// What has been typed so far. It looks like a field and is none: the bar hears the keys without
// having the keyboard.
Rectangle {
    id: field

    required property string query
    required property string prompt

    radius: height / 2
    color: Theme.surface
    border.width: query === "" ? 1 : 2
    border.color: query === "" ? Theme.border : Theme.accent

    Accessible.role: Accessible.EditableText
    Accessible.name: field.prompt
    Accessible.description: field.query
    Accessible.readOnly: true

    Symbol {
        id: lens

        x: 12
        anchors.verticalCenter: parent.verticalCenter
        name: "search"
        color: field.query === "" ? Theme.secondaryText : Theme.accent
        size: 16
    }

    Text {
        objectName: "queryText"
        anchors.left: lens.right
        anchors.right: parent.right
        anchors.leftMargin: 8
        anchors.rightMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        text: field.query === "" ? field.prompt : field.query
        textFormat: Text.PlainText
        maximumLineCount: 1
        // Of a long query the end is what is being typed.
        elide: field.query === "" ? Text.ElideRight : Text.ElideLeft
        color: field.query === "" ? Theme.secondaryText : Theme.text
        font.pixelSize: field.query === "" ? 13 : Theme.textSize
    }
}
