// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// One of many: the choice in a line that unfolds into all of them. Up and Down change the choice
// while it is folded. The unfolded list has the keyboard: Return takes a row, Escape none.
FocusScope {
    id: box

    // Texts, and the index of the one chosen.
    property var options: []
    property int current: 0
    property string name
    readonly property string currentText: current >= 0 && current < options.length ? options[current] : ""
    readonly property int rowHeight: 32

    signal chosen(int index)

    function unfold() {
        list.visible = true;
        list.currentIndex = box.current;
        list.positionViewAtIndex(Math.max(0, box.current), ListView.Contain);
        // Whatever scrolls the page brings into view what has the keyboard.
        list.forceActiveFocus();
    }

    function fold() {
        if (list.activeFocus)
            head.forceActiveFocus();
        list.visible = false;
    }

    function take(index) {
        box.fold();
        if (index >= 0)
            box.chosen(index);
    }

    implicitWidth: 220
    implicitHeight: head.height + (list.visible ? list.height + 4 : 0)
    onActiveFocusChanged: if (!box.activeFocus)
        list.visible = false

    Pressable {
        id: head

        width: parent.width
        height: Theme.controlHeight
        focus: true
        name: box.name + ": " + box.currentText
        Accessible.role: Accessible.ComboBox
        onPressed: {
            if (list.visible)
                box.fold();
            else
                box.unfold();
        }
        Keys.onUpPressed: if (box.current > 0)
            box.chosen(box.current - 1)
        Keys.onDownPressed: if (box.current < box.options.length - 1)
            box.chosen(box.current + 1)

        Rectangle {
            anchors.fill: parent
            radius: Theme.radius
            color: head.hovered ? Theme.hover : Theme.window
            border.width: 1
            border.color: Theme.border
        }

        Text {
            anchors.left: parent.left
            anchors.right: mark.left
            anchors.margins: 10
            anchors.verticalCenter: parent.verticalCenter
            text: box.currentText
            textFormat: Text.PlainText
            elide: Text.ElideRight
            color: Theme.text
            font.pixelSize: Theme.textSize
        }

        Symbol {
            id: mark

            anchors.right: parent.right
            anchors.rightMargin: 10
            anchors.verticalCenter: parent.verticalCenter
            name: list.visible ? "up" : "down"
            color: Theme.secondaryText
            size: 16
        }

        FocusRing {}
    }

    Rectangle {
        anchors.fill: list
        visible: list.visible
        radius: Theme.radius
        color: Theme.window
        border.width: 1
        border.color: Theme.border
    }

    ListView {
        id: list

        objectName: box.objectName + "List"
        anchors.top: head.bottom
        anchors.topMargin: 4
        width: parent.width
        height: Math.min(6.5, box.options.length) * box.rowHeight
        visible: false
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        highlightMoveDuration: 0
        model: box.options

        Accessible.role: Accessible.List
        Accessible.name: list.currentIndex >= 0 && list.currentIndex < box.options.length ? box.options[list.currentIndex] : box.name

        Keys.onReturnPressed: box.take(list.currentIndex)
        Keys.onEnterPressed: box.take(list.currentIndex)
        Keys.onSpacePressed: box.take(list.currentIndex)
        Keys.onEscapePressed: box.fold()

        // qmllint disable unqualified
        delegate: Rectangle {
            required property int index
            required property string modelData

            width: list.width
            height: box.rowHeight
            radius: Theme.radius
            color: index === list.currentIndex ? Theme.accent : area.containsMouse ? Theme.hover : "transparent"

            Accessible.role: Accessible.ListItem
            Accessible.name: modelData

            Text {
                anchors.fill: parent
                anchors.leftMargin: 10
                anchors.rightMargin: 10
                verticalAlignment: Text.AlignVCenter
                text: parent.modelData
                textFormat: Text.PlainText
                elide: Text.ElideRight
                color: parent.index === list.currentIndex ? Theme.accentText : Theme.text
                font.pixelSize: Theme.textSize
            }

            MouseArea {
                id: area

                anchors.fill: parent
                hoverEnabled: true
                onClicked: box.take(parent.index)
            }
        }
        // qmllint enable unqualified

        ScrollMark {
            flickable: list
        }
    }
}
