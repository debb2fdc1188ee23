// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// A line of text to type into, with a hint while it is empty and a button that clears it.
FocusScope {
    id: box

    property alias text: input.text
    property string placeholder
    property string name: placeholder
    property string symbol
    property bool clearable: true
    property alias maximumLength: input.maximumLength
    property alias input: input

    // The person typed; not told for texts set from outside.
    signal edited
    signal accepted

    implicitWidth: 200
    implicitHeight: Theme.controlHeight

    Rectangle {
        anchors.fill: parent
        radius: Theme.radius
        color: Theme.surface
        border.width: input.activeFocus ? 2 : 1
        border.color: input.activeFocus ? Theme.accent : Theme.border
    }

    Symbol {
        id: lead

        visible: box.symbol !== ""
        x: 10
        anchors.verticalCenter: parent.verticalCenter
        name: box.symbol
        color: Theme.secondaryText
        size: 16
    }

    TextInput {
        id: input

        anchors.fill: parent
        anchors.leftMargin: lead.visible ? 34 : 10
        anchors.rightMargin: clear.visible ? 34 : 10
        verticalAlignment: TextInput.AlignVCenter
        clip: true
        focus: true
        activeFocusOnTab: true
        selectByMouse: true
        color: Theme.text
        selectionColor: Theme.accent
        selectedTextColor: Theme.accentText
        font.pixelSize: Theme.textSize
        onTextEdited: box.edited()
        onAccepted: box.accepted()

        Accessible.role: Accessible.EditableText
        Accessible.name: box.name
        Accessible.editable: true
    }

    Text {
        anchors.fill: input
        visible: input.text === "" && input.preeditText === ""
        text: box.placeholder
        textFormat: Text.PlainText
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        color: Theme.secondaryText
        font.pixelSize: Theme.textSize
    }

    IconButton {
        id: clear

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        visible: box.clearable && input.text !== ""
        activeFocusOnTab: false
        symbol: "clear"
        name: qsTr("Clear")
        onPressed: {
            input.text = "";
            input.forceActiveFocus();
            box.edited();
        }
    }
}
