// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// A combo that is recorded by pressing it: the keys as they are, as they are held while recording,
// and below them why a press was refused or what to know about it.
FocusScope {
    id: field

    required property RecorderFace recorder
    // For assistive programs; the view that uses the field shows its own label.
    property string name
    property string placeholder: qsTr("No key")
    property bool clearable: true

    implicitWidth: 240
    implicitHeight: column.implicitHeight
    activeFocusOnTab: false

    Column {
        id: column

        width: field.width
        spacing: 6

        Pressable {
            id: box

            readonly property bool recording: field.recorder.recording
            readonly property var keys: field.recorder.keys
            readonly property var shownKeys: recording ? field.recorder.heldKeys : keys

            objectName: field.objectName + "Box"
            focus: true
            width: parent.width
            height: Theme.controlHeight + 4
            name: recording ? qsTr("%1: press the keys").arg(field.name) : keys.length > 0 ? qsTr("%1: %2").arg(field.name).arg(keys.join("+")) : qsTr("%1: %2").arg(field.name).arg(field.placeholder)

            Accessible.description: recording ? qsTr("Escape ends the recording") : qsTr("Press to record a key")

            onPressed: {
                box.forceActiveFocus();
                if (recording)
                    field.recorder.stop();
                else
                    field.recorder.start();
            }
            // Where the system also sends us what is recorded, nobody else may act on it.
            Keys.onPressed: event => {
                if (box.recording) {
                    if (event.key === Qt.Key_Escape)
                        field.recorder.stop();
                    event.accepted = true;
                } else if (field.clearable && (event.key === Qt.Key_Delete || event.key === Qt.Key_Backspace)) {
                    field.recorder.clear();
                    event.accepted = true;
                }
            }
            // Another control was chosen; a window that lost the keyboard to the recording itself
            // is not active at that moment.
            onActiveFocusChanged: {
                if (!box.activeFocus && box.recording && box.Window.active)
                    field.recorder.stop();
            }

            Rectangle {
                anchors.fill: parent
                radius: Theme.radius
                color: box.hovered && !box.recording ? Theme.hover : Theme.surface
                border.width: box.recording ? 2 : 1
                border.color: box.recording ? Theme.danger : Theme.border
            }

            Row {
                x: 10
                anchors.verticalCenter: parent.verticalCenter
                spacing: 8

                Symbol {
                    anchors.verticalCenter: parent.verticalCenter
                    name: box.recording ? "record" : "key"
                    color: box.recording ? Theme.danger : Theme.secondaryText
                    size: 16
                }

                KeyBadge {
                    anchors.verticalCenter: parent.verticalCenter
                    visible: box.shownKeys.length > 0
                    keys: box.shownKeys
                }

                Text {
                    anchors.verticalCenter: parent.verticalCenter
                    visible: box.shownKeys.length === 0
                    width: Math.min(implicitWidth, box.width - 44 - tail.width)
                    text: box.recording ? qsTr("Press the keys… Esc ends") : field.placeholder
                    textFormat: Text.PlainText
                    elide: Text.ElideRight
                    color: box.recording ? Theme.text : Theme.secondaryText
                    font.pixelSize: Theme.textSize
                }
            }

            Row {
                id: tail

                anchors.right: parent.right
                anchors.rightMargin: 2
                anchors.verticalCenter: parent.verticalCenter

                Text {
                    anchors.verticalCenter: parent.verticalCenter
                    rightPadding: 8
                    visible: !box.recording && !clear.visible
                    text: qsTr("Record")
                    textFormat: Text.PlainText
                    color: Theme.accent
                    font.pixelSize: Theme.textSize - 1

                    Accessible.ignored: true
                }

                IconButton {
                    id: clear

                    objectName: field.objectName + "Clear"
                    visible: field.clearable && !box.recording && field.recorder.keys.length > 0
                    symbol: "clear"
                    name: qsTr("Clear the key")
                    onPressed: {
                        field.recorder.clear();
                        box.forceActiveFocus();
                    }
                }
            }

            FocusRing {
                visible: box.activeFocus && !box.recording
            }
        }

        MessageLine {
            objectName: field.objectName + "Problem"
            width: parent.width
            kind: "danger"
            text: field.recorder.problem
        }

        MessageLine {
            objectName: field.objectName + "Warning"
            width: parent.width
            kind: "warning"
            text: field.recorder.problem === "" ? field.recorder.warning : ""
        }
    }
}
