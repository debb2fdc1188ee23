// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// A shortcut in the list. Always as high, so that the list need not measure rows out of sight. What
// its buttons do, the list does by keys: a list of fifty has one stop for Tab.
Item {
    id: row

    required property int index
    required property string recordId
    required property string name
    required property string path
    required property string place
    required property var keys
    required property var hideKeys
    required property string note
    required property string noteKind
    required property bool isConfirmed

    property bool current
    property bool canReorder
    property bool dragged
    readonly property bool active: hover.hovered || current
    readonly property color noteInk: noteKind === "danger" ? Theme.danger : noteKind === "warning" ? Theme.warning : Theme.secondaryText

    signal edit
    signal jump
    signal remove
    signal confirm
    signal dragStarted
    signal draggedTo(point place)
    signal dragEnded

    height: 56

    Accessible.role: Accessible.ListItem
    Accessible.name: row.name + (row.keys.length > 0 ? ", " + row.keys.join("+") : "") + (row.note !== "" ? ", " + row.note : "")
    Accessible.description: row.place
    Accessible.focusable: true
    Accessible.focused: row.current
    Accessible.onPressAction: row.edit()

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: 6
        anchors.rightMargin: 6
        radius: Theme.radius
        color: row.dragged ? Theme.hover : row.active ? Theme.surface : "transparent"
        border.width: row.dragged ? 2 : 0
        border.color: Theme.accent
    }

    HoverHandler {
        id: hover
    }

    MouseArea {
        anchors.fill: parent
        cursorShape: Qt.PointingHandCursor
        onClicked: row.edit()
    }

    Symbol {
        x: 6
        anchors.verticalCenter: parent.verticalCenter
        visible: row.canReorder && row.active
        name: "drag"
        color: Theme.secondaryText
        size: 18
    }

    MouseArea {
        objectName: "handle"
        width: 28
        height: parent.height
        enabled: row.canReorder
        cursorShape: Qt.SizeVerCursor
        preventStealing: true
        onPressed: row.dragStarted()
        onPositionChanged: mouse => row.draggedTo(Qt.point(mouse.x, mouse.y))
        onReleased: row.dragEnded()
        onCanceled: row.dragEnded()
    }

    TargetIcon {
        id: icon

        x: 28
        anchors.verticalCenter: parent.verticalCenter
        path: row.path
        title: row.name
        size: 32
    }

    Column {
        anchors.left: icon.right
        anchors.leftMargin: 12
        anchors.right: actionArea.visible ? actionArea.left : keyArea.left
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2

        Text {
            width: parent.width
            horizontalAlignment: Text.AlignLeft
            text: row.name
            textFormat: Text.PlainText
            elide: Text.ElideRight
            color: Theme.text
            font.pixelSize: Theme.textSize
            font.bold: true
        }

        Row {
            width: parent.width
            spacing: 5

            Symbol {
                id: mark

                anchors.verticalCenter: parent.verticalCenter
                visible: row.note !== ""
                name: row.note !== "" ? "warning" : ""
                color: row.noteInk
                size: 13
            }

            Text {
                width: parent.width - (mark.visible ? mark.width + parent.spacing : 0)
                horizontalAlignment: Text.AlignLeft
                text: row.note !== "" ? row.note : row.place
                textFormat: Text.PlainText
                elide: row.note !== "" ? Text.ElideRight : Text.ElideMiddle
                color: row.note !== "" ? row.noteInk : Theme.secondaryText
                font.pixelSize: Theme.smallSize
            }
        }
    }

    Item {
        id: keyArea

        anchors.right: parent.right
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        width: button.visible ? button.width : badges.width
        height: parent.height

        Column {
            id: badges

            anchors.verticalCenter: parent.verticalCenter
            spacing: 3

            KeyBadge {
                anchors.right: parent.right
                visible: row.keys.length > 0
                keys: row.keys
            }

            KeyBadge {
                anchors.right: parent.right
                visible: row.hideKeys.length > 0
                keys: row.hideKeys
                scale: 0.8
                transformOrigin: Item.Right
                opacity: 0.85
            }
        }

        // qmllint disable unqualified
        Loader {
            id: button

            anchors.verticalCenter: parent.verticalCenter
            active: !row.isConfirmed || row.keys.length === 0 && row.hideKeys.length === 0
            visible: active
            sourceComponent: ActionButton {
                objectName: row.isConfirmed ? "addKey" : "confirm"
                activeFocusOnTab: false
                implicitHeight: 28
                symbol: row.isConfirmed ? "add" : "check"
                text: row.isConfirmed ? qsTr("Add a key") : qsTr("Confirm")
                onPressed: row.isConfirmed ? row.edit() : row.confirm()
            }
        }
        // qmllint enable unqualified
    }

    // Made for the row that needs them: a list in motion has nothing to spare.
    // qmllint disable unqualified
    Loader {
        id: actionArea

        anchors.right: keyArea.left
        anchors.rightMargin: 4
        anchors.verticalCenter: parent.verticalCenter
        active: row.active && !row.dragged
        visible: active
        sourceComponent: Row {
            IconButton {
                objectName: "jump"
                activeFocusOnTab: false
                visible: row.isConfirmed
                symbol: "next"
                name: qsTr("Jump to %1").arg(row.name)
                onPressed: row.jump()
            }

            IconButton {
                objectName: "edit"
                activeFocusOnTab: false
                symbol: "edit"
                name: qsTr("Edit %1").arg(row.name)
                onPressed: row.edit()
            }

            IconButton {
                objectName: "remove"
                activeFocusOnTab: false
                symbol: "trash"
                name: qsTr("Remove %1").arg(row.name)
                onPressed: row.remove()
            }
        }
    }
    // qmllint enable unqualified
}
