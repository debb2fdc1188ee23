// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtQuick.Layouts
import Skipnest

// Where the program is from now on.
OnboardingStep {
    id: step

    required property OnboardingModel onboarding
    readonly property FirstShortcut shortcut: onboarding.shortcut

    title: qsTr("All set")
    lead: {
        switch (step.onboarding.statusItem) {
        case "available":
            return qsTr("Skipnest stays in the background. A click on its icon in the panel opens your list of shortcuts.");
        case "limited":
            return qsTr("Skipnest stays in the background, with an icon in the panel. Where a click on it does nothing, start Skipnest again: that opens your list of shortcuts.");
        default:
            return qsTr("Skipnest stays in the background. This desktop has no place for its icon: start Skipnest again to open its list.");
        }
    }

    Column {
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(parent.width, 460)
        spacing: Theme.margin

        Card {
            width: parent.width
            visible: step.shortcut.savedName !== ""
            title: qsTr("Your shortcut")

            RowLayout {
                Layout.fillWidth: true
                spacing: 12

                Symbol {
                    name: "check"
                    color: Theme.success
                }

                Text {
                    Layout.fillWidth: true
                    text: step.shortcut.savedName
                    textFormat: Text.PlainText
                    elide: Text.ElideRight
                    color: Theme.text
                    font.pixelSize: Theme.textSize
                }

                KeyBadge {
                    keys: step.shortcut.savedKeys
                }
            }
        }

        Card {
            width: parent.width

            RowLayout {
                Layout.fillWidth: true
                spacing: 12

                ColumnLayout {
                    Layout.fillWidth: true
                    spacing: 2

                    Text {
                        Layout.fillWidth: true
                        text: qsTr("Start Skipnest at login")
                        textFormat: Text.PlainText
                        wrapMode: Text.Wrap
                        color: Theme.text
                        font.pixelSize: Theme.textSize
                    }

                    Text {
                        Layout.fillWidth: true
                        text: qsTr("Your keys work as soon as you have logged in.")
                        textFormat: Text.PlainText
                        wrapMode: Text.Wrap
                        color: Theme.secondaryText
                        font.pixelSize: Theme.smallSize
                    }
                }

                Toggle {
                    objectName: "launchAtLogin"
                    name: qsTr("Start Skipnest at login")
                    enabled: step.onboarding.canLaunchAtLogin
                    checked: step.onboarding.launchAtLogin
                    onToggled: checked => step.onboarding.setLaunchAtLogin(checked)
                }
            }

            MessageLine {
                Layout.fillWidth: true
                kind: "warning"
                text: step.onboarding.launchAtLoginProblem
            }
        }

        Card {
            width: parent.width
            visible: step.onboarding.asksForPings

            RowLayout {
                Layout.fillWidth: true
                spacing: 12

                ColumnLayout {
                    Layout.fillWidth: true
                    spacing: 2

                    Text {
                        Layout.fillWidth: true
                        text: qsTr("Send anonymous usage counts")
                        textFormat: Text.PlainText
                        wrapMode: Text.Wrap
                        color: Theme.text
                        font.pixelSize: Theme.textSize
                    }

                    Text {
                        Layout.fillWidth: true
                        text: qsTr("Only if you like: the version, a random number for this installation and how far the first steps got. Never names or texts.")
                        textFormat: Text.PlainText
                        wrapMode: Text.Wrap
                        color: Theme.secondaryText
                        font.pixelSize: Theme.smallSize
                    }
                }

                Toggle {
                    objectName: "pings"
                    name: qsTr("Send anonymous usage counts")
                    checked: step.onboarding.pings
                    onToggled: checked => step.onboarding.setPings(checked)
                }
            }
        }
    }
}
