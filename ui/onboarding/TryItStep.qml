// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// The shortcut in use for the first time, or how to bind it where only the desktop can.
OnboardingStep {
    id: step

    required property FirstPress press

    signal otherKeyWanted

    readonly property bool arrived: press.state === "arrived"

    title: step.arrived ? qsTr("It works") : press.state === "refused" ? qsTr("This key is taken") : press.state === "boundByDesktop" ? qsTr("Your desktop binds the keys") : qsTr("Try it now")
    lead: {
        switch (step.press.state) {
        case "arrived":
            return qsTr("This key takes you to %1 from everywhere. Go on, or press it again.").arg(step.press.name);
        case "refused":
            return qsTr("Another program holds it, so the desktop did not give it to Skipnest.");
        case "boundByDesktop":
            return qsTr("%1 The shortcut is saved. The command “skipnest jump” opens it, and the desktop can give that a key.").arg(step.press.reason);
        default:
            return qsTr("Press the keys together. You are taken to %1, and this window comes back after a moment.").arg(step.press.name);
        }
    }

    Column {
        anchors.centerIn: parent
        spacing: 26

        Rectangle {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 104
            height: 104
            radius: 52
            color: Theme.surface
            border.width: step.arrived ? 3 : 1
            border.color: step.arrived ? Theme.success : step.press.state === "refused" ? Theme.danger : Theme.border

            TargetIcon {
                anchors.centerIn: parent
                path: step.press.path
                title: step.press.name
                size: 56
            }

            Rectangle {
                anchors.right: parent.right
                anchors.bottom: parent.bottom
                width: 34
                height: 34
                radius: 17
                visible: step.arrived
                color: Theme.success

                Symbol {
                    anchors.centerIn: parent
                    name: "check"
                    color: Theme.window
                    size: 22
                }
            }
        }

        KeyCaps {
            objectName: "keys"
            anchors.horizontalCenter: parent.horizontalCenter
            keys: step.press.keys
        }

        ActionButton {
            objectName: "otherKey"
            anchors.horizontalCenter: parent.horizontalCenter
            visible: step.press.state === "refused"
            text: qsTr("Choose another key")
            onPressed: step.otherKeyWanted()
        }

        Column {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: step.press.state === "boundByDesktop"
            spacing: 12

            Text {
                anchors.horizontalCenter: parent.horizontalCenter
                width: 500
                text: qsTr("Copy what your desktop needs: commands to paste into a terminal for GNOME and KDE, lines of its configuration for sway.")
                textFormat: Text.PlainText
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
                color: Theme.text
                font.pixelSize: Theme.textSize
            }

            Row {
                anchors.horizontalCenter: parent.horizontalCenter
                spacing: Theme.spacing

                Repeater {
                    model: [
                        {
                            id: "gnome",
                            text: qsTr("Copy for %1").arg("GNOME")
                        },
                        {
                            id: "kde",
                            text: qsTr("Copy for %1").arg("KDE")
                        },
                        {
                            id: "sway",
                            text: qsTr("Copy for %1").arg("sway")
                        }
                    ]

                    // qmllint disable unqualified
                    ActionButton {
                        required property var modelData

                        objectName: "copy-" + modelData.id
                        symbol: "copy"
                        text: modelData.text
                        onPressed: {
                            step.press.copyBindings(modelData.id);
                            copied.text = qsTr("The bindings are on the clipboard.");
                        }
                    }
                    // qmllint enable unqualified
                }
            }

            MessageLine {
                id: copied

                anchors.horizontalCenter: parent.horizontalCenter
                width: 320
                kind: "success"
            }
        }
    }
}
