// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// Taking part in the challenge: one face at a time.
ScreenPage {
    id: root

    required property PopoverModel popover
    readonly property ChallengeScreenModel challenge: popover.challenge

    function goBack(): void {
        if (!root.challenge.cancel())
            root.popover.back();
    }

    title: challenge.face === "rename" ? qsTr("Change name or flag") : qsTr("World leaderboard")
    onBack: root.goBack()
    Keys.onEscapePressed: root.goBack()

    actions: IconButton {
        objectName: "challengeRefresh"
        visible: root.challenge.face === "board" && root.challenge.problem === ""
        enabled: !root.challenge.isReading
        symbol: "restore"
        name: qsTr("Read the board again")
        onPressed: root.challenge.readBoard()
    }

    // qmllint disable unqualified
    Loader {
        anchors.fill: parent
        focus: true
        sourceComponent: root.challenge.face === "board" ? boardFace : root.challenge.face === "leave" ? leaveFace : form
        onLoaded: item.focus = true
    }

    Component {
        id: form

        ChallengeForm {
            challenge: root.challenge
        }
    }

    Component {
        id: boardFace

        ChallengeBoardFace {
            challenge: root.challenge
        }
    }

    Component {
        id: leaveFace

        ChallengeLeaveFace {
            challenge: root.challenge
        }
    }
    // qmllint enable unqualified
}
