// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// Several lines of text to type into. Tab leaves it, as in a form.
FocusScope {
    id: pad

    property alias text: edit.text
    property alias readOnly: edit.readOnly
    property string placeholder
    property string name: placeholder
    property bool isCode: false

    // Ctrl with Return, as in chats.
    signal accepted

    implicitWidth: 200
    implicitHeight: 140

    Rectangle {
        anchors.fill: parent
        radius: Theme.radius
        color: Theme.surface
        border.width: edit.activeFocus ? 2 : 1
        border.color: edit.activeFocus ? Theme.accent : Theme.border
    }

    Flickable {
        id: flick

        anchors.fill: parent
        anchors.margins: 2
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        contentWidth: width
        contentHeight: edit.implicitHeight

        function reveal(line) {
            if (line.y < flick.contentY)
                flick.contentY = line.y;
            else if (line.y + line.height + edit.bottomPadding > flick.contentY + flick.height)
                flick.contentY = line.y + line.height + edit.bottomPadding - flick.height;
        }

        TextEdit {
            id: edit

            Binding on font.family {
                when: pad.isCode
                value: "monospace"
            }

            width: flick.width
            height: Math.max(implicitHeight, flick.height)
            padding: 8
            focus: true
            activeFocusOnTab: true
            selectByMouse: true
            textFormat: TextEdit.PlainText
            wrapMode: TextEdit.Wrap
            color: Theme.text
            selectionColor: Theme.accent
            selectedTextColor: Theme.accentText
            font.pixelSize: pad.isCode ? Theme.smallSize : Theme.textSize
            onCursorRectangleChanged: flick.reveal(edit.cursorRectangle)

            Keys.onTabPressed: edit.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            Keys.onBacktabPressed: edit.nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
            Keys.onReturnPressed: event => {
                event.accepted = (event.modifiers & Qt.ControlModifier) !== 0;
                if (event.accepted)
                    pad.accepted();
            }

            Accessible.role: Accessible.EditableText
            Accessible.name: pad.name
            Accessible.multiLine: true
            Accessible.editable: !edit.readOnly
        }

        Text {
            x: edit.padding
            y: edit.padding
            width: flick.width - 2 * edit.padding
            visible: edit.text === "" && edit.preeditText === ""
            text: pad.placeholder
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.secondaryText
            font.pixelSize: Theme.textSize
        }

        ScrollMark {
            flickable: flick
        }
    }
}
