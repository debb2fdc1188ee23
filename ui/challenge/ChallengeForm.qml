// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtQuick.Layouts
import Skipnest

// The name and the flag of an entry: to join with, or to change.
FocusScope {
    id: form

    required property ChallengeScreenModel challenge
    readonly property bool isRename: challenge.face === "rename"
    readonly property bool isOpen: challenge.problem === "" && !challenge.isBusy

    ScrollPage {
        anchors.fill: parent

        Column {
            width: parent.width
            visible: !form.isRename
            spacing: 6

            Text {
                width: parent.width
                text: qsTr("🌍 Global Jump Challenge")
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: Theme.text
                font.pixelSize: Theme.titleSize + 3
                font.bold: true

                Accessible.role: Accessible.Heading
                Accessible.name: text
            }

            Text {
                width: parent.width
                text: qsTr("Put your jumps on the world leaderboard - anonymous, just a name and a flag.")
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: Theme.secondaryText
                font.pixelSize: Theme.textSize
            }
        }

        Column {
            width: parent.width
            visible: problem.text !== ""
            spacing: 6

            MessageLine {
                id: problem

                objectName: "challengeProblem"
                width: parent.width
                text: form.challenge.problem
            }

            Text {
                x: 10
                width: parent.width - 20
                visible: text !== ""
                text: form.challenge.remedy
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: Theme.secondaryText
                font.pixelSize: Theme.smallSize
            }
        }

        Column {
            width: parent.width
            spacing: 6

            FieldLabel {
                text: qsTr("Your name on the board")
            }

            TextBox {
                id: name

                objectName: "challengeName"
                width: parent.width
                focus: true
                enabled: form.isOpen
                opacity: enabled ? 1 : 0.5
                name: qsTr("Your name on the board")
                placeholder: qsTr("Any name you like")
                text: form.challenge.name
                onEdited: form.challenge.name = name.text
                onAccepted: form.challenge.send()
            }

            Text {
                objectName: "challengeNameHint"
                width: parent.width
                visible: text !== ""
                text: form.challenge.nameHint
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: Theme.warning
                font.pixelSize: Theme.smallSize
            }
        }

        Column {
            width: parent.width
            spacing: 6

            FieldLabel {
                text: qsTr("Your flag")
            }

            CountryField {
                objectName: "challengeCountry"
                width: parent.width
                enabled: form.isOpen
                name: qsTr("Your flag")
                choices: form.challenge.countries
                code: form.challenge.country
                countryName: form.challenge.countryName
                onChosen: code => form.challenge.country = code
            }
        }

        MessageLine {
            objectName: "challengeMessage"
            width: parent.width
            kind: form.challenge.messageKind
            text: form.challenge.message
        }

        RowLayout {
            width: parent.width
            spacing: Theme.spacing

            Text {
                Layout.fillWidth: true
                text: qsTr("Sends only: name, flag, jumps, minutes, streak.")
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: Theme.secondaryText
                font.pixelSize: Theme.smallSize
            }

            ActionButton {
                objectName: "challengeCancel"
                visible: form.isRename
                text: qsTr("Cancel")
                onPressed: form.challenge.cancel()
            }

            ActionButton {
                objectName: "challengeSend"
                enabled: form.challenge.canSend
                kind: "primary"
                text: form.challenge.isBusy ? qsTr("Checking…") : form.isRename ? qsTr("Save") : qsTr("Join")
                onPressed: form.challenge.send()
            }
        }

        LinkButton {
            objectName: "challengeWeb"
            visible: !form.isRename && form.challenge.problem === ""
            text: qsTr("Open web leaderboard")
            onPressed: form.challenge.openWebBoard()
        }
    }
}
