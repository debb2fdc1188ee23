// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtQuick.Layouts
import Skipnest

// Asks once more before the entry is deleted.
FocusScope {
    id: face

    required property ChallengeScreenModel challenge

    ScrollPage {
        anchors.fill: parent

        Text {
            width: parent.width
            text: qsTr("Leave the challenge?")
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.text
            font.pixelSize: Theme.titleSize
            font.bold: true

            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        Text {
            width: parent.width
            text: qsTr("Your entry is deleted from the leaderboard, and nothing more is sent. Your own statistics stay here.")
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.text
            font.pixelSize: Theme.textSize
        }

        MessageLine {
            objectName: "challengeMessage"
            width: parent.width
            kind: face.challenge.messageKind
            text: face.challenge.message
        }

        RowLayout {
            width: parent.width
            spacing: Theme.spacing

            Item {
                Layout.fillWidth: true
            }

            ActionButton {
                objectName: "challengeLeave"
                enabled: !face.challenge.isBusy
                kind: "danger"
                text: face.challenge.isBusy ? qsTr("Leaving…") : qsTr("Leave")
                onPressed: face.challenge.leave()
            }

            ActionButton {
                objectName: "challengeStay"
                focus: true
                enabled: !face.challenge.isBusy
                kind: "primary"
                text: qsTr("Stay")
                onPressed: face.challenge.cancel()
            }
        }
    }
}
