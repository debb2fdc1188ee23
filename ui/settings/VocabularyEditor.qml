// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtQuick.Layouts
import Skipnest

// A list of words, or of what is heard and what is meant, with a line to add one more.
FocusScope {
    id: editor

    required property VocabularyRows rows
    property string name
    property bool hasCanonical: false
    readonly property bool isComplete: heardBox.text.trim() !== "" && (!hasCanonical || canonicalBox.text.trim() !== "")

    signal added(string heard, string canonical)
    signal removed(string heard)

    function add() {
        if (!editor.isComplete) {
            if (editor.hasCanonical && heardBox.text.trim() !== "")
                canonicalBox.forceActiveFocus();
            return;
        }
        editor.added(heardBox.text, canonicalBox.text);
        heardBox.text = "";
        canonicalBox.text = "";
        heardBox.forceActiveFocus();
    }

    implicitHeight: column.implicitHeight

    Accessible.role: Accessible.Grouping
    Accessible.name: editor.name

    ColumnLayout {
        id: column

        width: parent.width
        spacing: 4

        Repeater {
            id: list

            model: editor.rows

            // qmllint disable unqualified
            RowLayout {
                id: entry

                required property int index
                required property string heard
                required property string canonical
                readonly property string wording: canonical === "" ? heard : heard + " → " + canonical

                Layout.fillWidth: true

                Text {
                    Layout.fillWidth: true
                    Layout.leftMargin: 10
                    text: entry.wording
                    textFormat: Text.PlainText
                    maximumLineCount: 1
                    elide: Text.ElideRight
                    color: Theme.text
                    font.pixelSize: Theme.textSize

                    Accessible.role: Accessible.ListItem
                    Accessible.name: entry.wording
                }

                IconButton {
                    objectName: editor.objectName + "Remove" + entry.index
                    symbol: "trash"
                    name: qsTr("Remove %1").arg(entry.heard)
                    onPressed: {
                        heardBox.forceActiveFocus();
                        editor.removed(entry.heard);
                    }
                }
            }
            // qmllint enable unqualified
        }

        RowLayout {
            Layout.fillWidth: true
            spacing: 6

            TextBox {
                id: heardBox

                objectName: editor.objectName + "Heard"
                Layout.fillWidth: true
                Layout.preferredWidth: 10
                focus: true
                maximumLength: 200
                placeholder: editor.hasCanonical ? qsTr("Heard") : qsTr("New word")
                onAccepted: editor.add()
            }

            Text {
                visible: editor.hasCanonical
                text: "→"
                color: Theme.secondaryText
                font.pixelSize: Theme.textSize

                Accessible.ignored: true
            }

            TextBox {
                id: canonicalBox

                objectName: editor.objectName + "Canonical"
                Layout.fillWidth: true
                Layout.preferredWidth: 10
                visible: editor.hasCanonical
                maximumLength: 200
                placeholder: qsTr("Meant")
                onAccepted: editor.add()
            }

            ActionButton {
                objectName: editor.objectName + "Add"
                enabled: editor.isComplete
                text: qsTr("Add")
                onPressed: editor.add()
            }
        }
    }
}
