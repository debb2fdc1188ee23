// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// Every setting by section below a field to find one, and on a page of its own who has which key.
ScreenPage {
    id: root

    required property PopoverModel popover
    readonly property SettingsModel settings: popover.settings
    property bool showsLedger: false

    function closeLedger() {
        root.showsLedger = false;
        keysButton.forceActiveFocus();
    }

    title: root.showsLedger ? qsTr("Keys") : qsTr("Settings")
    onBack: {
        if (root.showsLedger)
            root.closeLedger();
        else
            root.popover.back();
    }
    Keys.onEscapePressed: event => {
        event.accepted = root.showsLedger;
        if (root.showsLedger)
            root.closeLedger();
    }

    Item {
        anchors.fill: parent
        visible: !root.showsLedger

        TextBox {
            id: find

            objectName: "findSetting"
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: parent.top
            anchors.margins: Theme.margin
            focus: true
            symbol: "search"
            placeholder: qsTr("Find a setting")
            text: root.settings.filter
            onEdited: root.settings.filter = find.text
        }

        Rectangle {
            id: line

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: find.bottom
            anchors.topMargin: Theme.margin
            height: 1
            color: Theme.border
        }

        ScrollPage {
            id: page

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: line.bottom
            anchors.bottom: parent.bottom

            Text {
                width: parent.width
                visible: root.settings.findsNothing
                text: qsTr("No setting has these words.")
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: Theme.secondaryText
                font.pixelSize: Theme.textSize
            }

            Repeater {
                model: root.settings.sections

                // qmllint disable unqualified
                SettingsSection {
                    required property SettingRows modelData

                    width: page.width - 2 * page.sideMargin
                    section: modelData
                    settings: root.settings
                }
                // qmllint enable unqualified
            }

            Card {
                width: parent.width
                visible: root.settings.showsKeys
                title: qsTr("Keys")

                SettingText {
                    title: qsTr("Who has which key")
                    description: qsTr("Every shortcut that Skipnest has, was refused, or that the desktop keeps for itself.")
                }

                SettingText {
                    objectName: "ledgerSummary"
                    description: root.settings.ledger.summary
                    color: root.settings.ledger.hasRefused ? Theme.warning : Theme.secondaryText
                }

                ActionButton {
                    id: keysButton

                    objectName: "showKeys"
                    symbol: "key"
                    text: qsTr("Show all keys")
                    onPressed: root.showsLedger = true
                }
            }

            Card {
                width: parent.width
                visible: root.settings.showsBrowsers && root.popover.browsers.summary !== ""
                title: qsTr("Browser tabs")

                SettingText {
                    title: qsTr("Tabs in the switcher")
                    description: qsTr("The bar of a browser shows its tabs once it has Skipnest's extension.")
                }

                SettingText {
                    objectName: "browserSummary"
                    description: root.popover.browsers.summary
                }

                ActionButton {
                    objectName: "openBrowsers"
                    text: qsTr("Set up browsers")
                    onPressed: root.popover.open("browsers")
                }
            }

            Card {
                width: parent.width
                visible: root.settings.showsChallenge
                title: qsTr("🌍 Global Jump Challenge")

                SettingText {
                    title: qsTr("Put your jumps on the world leaderboard - anonymous, just a name and a flag.")
                    description: qsTr("Sends only: name, flag, jumps, minutes, streak.")
                }

                ActionButton {
                    objectName: "openChallenge"
                    text: qsTr("Open the challenge")
                    onPressed: root.popover.open("challenge")
                }
            }

            AboutSection {
                width: parent.width
                visible: root.settings.showsAbout
                settings: root.settings
            }
        }
    }

    Loader {
        anchors.fill: parent
        active: root.showsLedger
        focus: root.showsLedger
        onLoaded: item.forceActiveFocus() // qmllint disable missing-property
        // qmllint disable unqualified
        sourceComponent: KeyLedgerPage {
            ledger: root.settings.ledger
        }
        // qmllint enable unqualified
    }
}
