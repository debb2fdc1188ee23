// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// A new shortcut, or changes to one: the target, its name, its keys.
ScreenPage {
    id: root

    required property PopoverModel popover

    readonly property ShortcutEditor editor: root.popover.editor

    title: root.editor.editing ? qsTr("Edit shortcut") : qsTr("New shortcut")
    focus: true
    onBack: root.goBack()

    function goBack(): void {
        if (!(root.editor.choosing && root.editor.keepTarget()))
            root.popover.back();
    }

    // Where one goes on typing.
    function placeFocus(): void {
        const item = root.editor.choosing ? searchField : jumpField;
        if (root.activeFocus)
            item.forceActiveFocus();
        else
            item.focus = true;
    }

    Component.onCompleted: root.placeFocus()

    Keys.onPressed: event => {
        if (event.key === Qt.Key_Escape) {
            root.goBack();
            event.accepted = true;
        } else if ((event.key === Qt.Key_Return || event.key === Qt.Key_Enter) && !root.editor.choosing) {
            if (!event.isAutoRepeat)
                root.editor.save();
            event.accepted = true;
        }
    }

    Connections {
        target: root.editor

        function onStarted() {
            root.placeFocus();
        }

        function onChoosingChanged() {
            root.placeFocus();
        }
    }

    Connections {
        target: root.editor.jumpKey

        // Recorded: Return saves.
        function onChosen() {
            if (root.activeFocus && root.editor.jumpKey.keys.length > 0)
                saveButton.forceActiveFocus();
        }
    }

    TargetSearchField {
        id: searchField

        anchors.fill: parent
        anchors.bottomMargin: searchProblem.visible ? searchProblem.height + 2 * 10 : 0
        visible: root.editor.choosing
        chooser: root.editor.chooser
    }

    MessageLine {
        id: searchProblem

        anchors.bottom: parent.bottom
        anchors.bottomMargin: 10
        x: Theme.margin
        width: parent.width - 2 * Theme.margin
        kind: "danger"
        text: root.editor.choosing ? root.editor.problem : ""
    }

    ScrollPage {
        id: form

        anchors.top: parent.top
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: buttons.top
        visible: !root.editor.choosing

        Rectangle {
            width: parent.width
            height: 64
            radius: Theme.radius
            color: Theme.surface
            border.width: 1
            border.color: root.editor.targetMissing ? Theme.danger : Theme.border

            TargetIcon {
                id: icon

                x: 12
                anchors.verticalCenter: parent.verticalCenter
                path: root.editor.targetPath
                title: root.editor.targetName
                size: 40
            }

            Column {
                anchors.left: icon.right
                anchors.leftMargin: 12
                anchors.right: change.left
                anchors.rightMargin: 10
                anchors.verticalCenter: parent.verticalCenter
                spacing: 2

                Text {
                    objectName: "targetName"
                    width: parent.width
                    horizontalAlignment: Text.AlignLeft
                    text: root.editor.targetName
                    textFormat: Text.PlainText
                    elide: Text.ElideRight
                    maximumLineCount: 1
                    color: Theme.text
                    font.pixelSize: Theme.textSize
                    font.bold: true
                }

                Text {
                    objectName: "targetPlace"
                    width: parent.width
                    horizontalAlignment: Text.AlignLeft
                    text: root.editor.targetPlace
                    textFormat: Text.PlainText
                    elide: Text.ElideMiddle
                    color: Theme.secondaryText
                    font.pixelSize: Theme.smallSize

                    Accessible.role: Accessible.StaticText
                    Accessible.name: qsTr("Target: %1").arg(text)
                }
            }

            ActionButton {
                id: change

                objectName: "changeTarget"
                anchors.right: parent.right
                anchors.rightMargin: 12
                anchors.verticalCenter: parent.verticalCenter
                text: root.editor.targetMissing ? qsTr("Locate again") : qsTr("Change")
                onPressed: root.editor.changeTarget()
            }
        }

        MessageLine {
            width: parent.width
            kind: "danger"
            text: root.editor.targetMissing && root.editor.problem === "" ? qsTr("Nothing is there any more. Locate it again: the shortcut keeps its keys.") : ""
        }

        MessageLine {
            objectName: "editorProblem"
            width: parent.width
            kind: "danger"
            text: root.editor.problem
        }

        ActionButton {
            objectName: "openExisting"
            visible: root.editor.existingId !== ""
            text: qsTr("Open that shortcut")
            onPressed: root.popover.edit(root.editor.existingId)
        }

        MessageLine {
            width: parent.width
            kind: "warning"
            text: root.editor.unconfirmed ? qsTr("Imported – confirm before it can run") : ""
        }

        ActionButton {
            objectName: "editorConfirm"
            visible: root.editor.unconfirmed
            symbol: "check"
            text: qsTr("Confirm")
            onPressed: root.editor.confirm()
        }

        Column {
            width: parent.width
            spacing: 6

            FieldLabel {
                text: qsTr("Jump with")
            }

            ComboField {
                id: jumpField

                objectName: "jumpKey"
                width: parent.width
                name: qsTr("Jump with")
                recorder: root.editor.jumpKey
            }
        }

        Column {
            width: parent.width
            spacing: 6

            FieldLabel {
                text: qsTr("Hide with")
            }

            ComboField {
                objectName: "hideKey"
                width: parent.width
                name: qsTr("Hide with")
                placeholder: root.editor.derivedHide !== "" ? root.editor.derivedHide : qsTr("No key")
                recorder: root.editor.hideKey
            }
        }

        Column {
            width: parent.width
            spacing: 6

            FieldLabel {
                text: qsTr("Name")
            }

            TextBox {
                id: nameBox

                objectName: "nameBox"
                width: parent.width
                name: qsTr("Name")
                placeholder: root.editor.suggestedName
                onEdited: root.editor.name = text

                Binding {
                    target: nameBox
                    property: "text"
                    value: root.editor.name
                }
            }
        }
    }

    Item {
        id: buttons

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        height: 58
        visible: !root.editor.choosing

        Rectangle {
            width: parent.width
            height: 1
            color: Theme.border
        }

        ActionButton {
            objectName: "removeShortcut"
            x: Theme.margin
            anchors.verticalCenter: parent.verticalCenter
            visible: root.editor.editing
            kind: "danger"
            symbol: "trash"
            text: qsTr("Remove")
            onPressed: {
                root.popover.list.remove(root.editor.recordId);
                root.popover.back();
            }
        }

        Row {
            anchors.right: parent.right
            anchors.rightMargin: Theme.margin
            anchors.verticalCenter: parent.verticalCenter
            spacing: Theme.spacing

            ActionButton {
                objectName: "cancelEdit"
                text: qsTr("Cancel")
                onPressed: root.popover.back()
            }

            ActionButton {
                id: saveButton

                objectName: "save"
                kind: "primary"
                text: qsTr("Save")
                onPressed: root.editor.save()
            }
        }
    }
}
