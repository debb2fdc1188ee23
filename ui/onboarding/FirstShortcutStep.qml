// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtQuick.Layouts
import Skipnest

// A target on the left, its key on the right.
OnboardingStep {
    id: step

    required property FirstShortcut shortcut

    // The keyboard is wanted no longer here: the proposed key may do.
    signal targetChosen

    wantsFocus: true
    title: qsTr("The first shortcut")
    lead: qsTr("Choose what you open most often. A free key is proposed for it.")

    function choose(path) {
        step.shortcut.choose(path);
        if (step.shortcut.targetPath !== "")
            step.targetChosen();
    }

    RowLayout {
        anchors.fill: parent
        spacing: 24

        ColumnLayout {
            Layout.fillHeight: true
            Layout.preferredWidth: 290
            Layout.maximumWidth: 290
            spacing: Theme.spacing

            TextBox {
                id: box

                objectName: "search"
                Layout.fillWidth: true
                focus: true
                symbol: "search"
                placeholder: qsTr("Search for a name")
                name: qsTr("Search applications, files and folders")
                onEdited: {
                    step.shortcut.search(box.text);
                    list.currentIndex = 0;
                }

                Keys.onDownPressed: list.incrementCurrentIndex()
                Keys.onUpPressed: list.decrementCurrentIndex()
                Keys.onReturnPressed: event => event.accepted = list.take()
                Keys.onEnterPressed: event => event.accepted = list.take()
                Keys.onEscapePressed: event => {
                    event.accepted = box.text !== "";
                    box.text = "";
                    step.shortcut.search("");
                }
                Component.onCompleted: box.text = step.shortcut.searchText
            }

            Rectangle {
                Layout.fillWidth: true
                Layout.fillHeight: true
                radius: Theme.radius
                color: Theme.surface
                border.width: 1
                border.color: list.activeFocus ? Theme.accent : Theme.border

                ListView {
                    id: list

                    objectName: "choices"
                    anchors.fill: parent
                    anchors.margins: 4
                    clip: true
                    activeFocusOnTab: true
                    boundsBehavior: Flickable.StopAtBounds
                    reuseItems: true
                    model: step.shortcut.choices
                    currentIndex: 0
                    highlightMoveDuration: 0

                    Accessible.role: Accessible.List
                    Accessible.name: qsTr("Targets")

                    // What is typed may have found nothing yet: that is no reason to go on without it.
                    function take() {
                        if (list.currentItem)
                            step.choose((list.currentItem as TargetChoiceRow).path);
                        return list.count > 0 || box.text !== "";
                    }

                    onCountChanged: {
                        if (list.currentIndex < 0 && list.count > 0)
                            list.currentIndex = 0;
                    }

                    Keys.onReturnPressed: event => event.accepted = list.take()
                    Keys.onEnterPressed: event => event.accepted = list.take()
                    Keys.onSpacePressed: list.take()

                    // qmllint disable unqualified
                    delegate: TargetChoiceRow {
                        width: list.width
                        marked: ListView.isCurrentItem && (list.activeFocus || box.activeFocus)
                        chosen: path === step.shortcut.targetPath
                        onPicked: {
                            list.currentIndex = index;
                            step.choose(path);
                        }
                    }
                    // qmllint enable unqualified

                    ScrollMark {
                        flickable: list
                    }
                }

                Text {
                    anchors.fill: parent
                    anchors.margins: Theme.margin
                    visible: list.count === 0
                    text: step.shortcut.isSearching ? qsTr("Searching…") : step.shortcut.searchText === "" ? qsTr("Type a part of a name above.") : qsTr("Nothing is called that.")
                    textFormat: Text.PlainText
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    wrapMode: Text.Wrap
                    color: Theme.secondaryText
                    font.pixelSize: Theme.textSize
                }
            }
        }

        ColumnLayout {
            Layout.fillWidth: true
            Layout.fillHeight: true
            spacing: Theme.margin

            Card {
                Layout.fillWidth: true
                title: qsTr("Target")

                RowLayout {
                    Layout.fillWidth: true
                    spacing: 12

                    TargetIcon {
                        visible: step.shortcut.targetPath !== ""
                        path: step.shortcut.targetPath
                        title: step.shortcut.targetName
                        size: 36
                    }

                    Text {
                        objectName: "target"
                        Layout.fillWidth: true
                        Layout.minimumHeight: 36
                        text: step.shortcut.targetName !== "" ? step.shortcut.targetName : qsTr("Nothing chosen yet")
                        textFormat: Text.PlainText
                        verticalAlignment: Text.AlignVCenter
                        elide: Text.ElideRight
                        color: step.shortcut.targetName !== "" ? Theme.text : Theme.secondaryText
                        font.pixelSize: Theme.textSize + 1
                        font.bold: step.shortcut.targetName !== ""
                    }
                }
            }

            Card {
                Layout.fillWidth: true
                visible: step.shortcut.targetPath !== ""
                title: qsTr("Key")

                ComboField {
                    objectName: "combo"
                    Layout.fillWidth: true
                    recorder: step.shortcut.recorder
                    name: qsTr("Key")
                    clearable: false
                    placeholder: qsTr("Press keys of your choice")
                }

                Text {
                    Layout.fillWidth: true
                    text: qsTr("Any combination with Ctrl, Alt, Shift or Super will do.")
                    textFormat: Text.PlainText
                    wrapMode: Text.Wrap
                    color: Theme.secondaryText
                    font.pixelSize: Theme.smallSize
                }
            }

            MessageLine {
                Layout.fillWidth: true
                kind: "warning"
                text: step.shortcut.problem
            }

            MessageLine {
                objectName: "saved"
                Layout.fillWidth: true
                kind: "success"
                text: step.shortcut.savedName !== "" && step.shortcut.targetPath === "" ? qsTr("%1 has the key %2. Choose another target, or go on.").arg(step.shortcut.savedName).arg(step.shortcut.savedCombo) : ""
            }

            Item {
                Layout.fillHeight: true
            }
        }
    }
}
