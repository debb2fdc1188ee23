// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtQuick.Layouts
import Skipnest

// The person's own place, and the board below it.
FocusScope {
    id: face

    required property ChallengeScreenModel challenge

    component ColumnHead: Text {
        horizontalAlignment: Text.AlignRight
        textFormat: Text.PlainText
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 8
        color: Theme.secondaryText
        font.pixelSize: Theme.smallSize
    }

    ColumnLayout {
        id: top

        anchors.top: parent.top
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: Theme.margin
        spacing: Theme.spacing

        Card {
            Layout.fillWidth: true

            RowLayout {
                Layout.fillWidth: true
                spacing: 10

                Text {
                    objectName: "challengeStanding"
                    Layout.fillWidth: true
                    text: face.challenge.standing
                    textFormat: Text.PlainText
                    elide: Text.ElideRight
                    color: Theme.text
                    font.pixelSize: Theme.titleSize + 3
                    font.bold: true

                    Accessible.role: Accessible.Heading
                    Accessible.name: text
                }

                Text {
                    objectName: "challengeClimb"
                    visible: text !== ""
                    text: face.challenge.climb
                    textFormat: Text.PlainText
                    color: face.challenge.isClimbing ? Theme.success : Theme.warning
                    font.pixelSize: Theme.titleSize
                    font.bold: true

                    Accessible.role: Accessible.StaticText
                    Accessible.name: face.challenge.climbText

                    HoverHandler {
                        id: climbHover
                    }

                    Hint {
                        text: face.challenge.climbText
                        shown: climbHover.hovered
                    }
                }
            }

            RowLayout {
                Layout.fillWidth: true
                spacing: 8

                FlagMark {
                    visible: face.challenge.ownCountry !== ""
                    code: face.challenge.ownCountry
                }

                Text {
                    objectName: "challengeOwnName"
                    Layout.fillWidth: true
                    horizontalAlignment: Text.AlignLeft
                    text: face.challenge.ownName
                    textFormat: Text.PlainText
                    maximumLineCount: 1
                    elide: Text.ElideRight
                    color: Theme.text
                    font.pixelSize: Theme.textSize

                    Accessible.role: Accessible.StaticText
                    Accessible.name: text + ", " + face.challenge.ownCountryName
                }

                Text {
                    visible: face.challenge.climbText !== ""
                    text: face.challenge.climbText
                    textFormat: Text.PlainText
                    color: Theme.secondaryText
                    font.pixelSize: Theme.smallSize
                }
            }

            Flow {
                Layout.fillWidth: true
                spacing: 16

                LinkButton {
                    objectName: "challengeRename"
                    text: qsTr("Change name or flag")
                    onPressed: face.challenge.startRename()
                }

                LinkButton {
                    objectName: "challengeWeb"
                    visible: face.challenge.problem === ""
                    text: qsTr("Open web leaderboard")
                    onPressed: face.challenge.openWebBoard()
                }

                LinkButton {
                    objectName: "challengeAskToLeave"
                    text: qsTr("Leave…")
                    onPressed: face.challenge.askToLeave()
                }
            }
        }

        MessageLine {
            objectName: "challengeProblem"
            Layout.fillWidth: true
            text: face.challenge.problem
        }

        MessageLine {
            objectName: "challengeMessage"
            Layout.fillWidth: true
            kind: face.challenge.messageKind
            text: face.challenge.message
        }

        Text {
            objectName: "challengeBoardNote"
            Layout.fillWidth: true
            visible: text !== "" && board.count > 0
            text: face.challenge.boardNote
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.secondaryText
            font.pixelSize: Theme.smallSize
        }
    }

    Row {
        id: heads

        anchors.top: top.bottom
        anchors.topMargin: Theme.spacing
        anchors.right: parent.right
        anchors.rightMargin: 18
        visible: board.count > 0

        ColumnHead {
            width: 62
            text: qsTr("Jumps")
        }

        ColumnHead {
            width: 54
            text: qsTr("Min.")
        }

        ColumnHead {
            width: 50
            text: qsTr("Streak")
        }
    }

    ListView {
        id: board

        // The person has gone to a row; until then their own is current.
        property bool moved: false
        readonly property int rowHeight: 36

        function step(rows: int): void {
            board.moved = true;
            board.currentIndex = Math.max(0, Math.min(board.count - 1, board.currentIndex + rows));
        }

        function showOwn(): void {
            if (board.moved)
                return;
            const row = Math.max(0, face.challenge.ownRow);
            board.currentIndex = row;
            // From the first on, where there is room for that and for who comes next.
            if ((row + 2) * board.rowHeight <= board.height)
                board.positionViewAtBeginning();
            else
                board.positionViewAtIndex(row, ListView.Center);
        }

        objectName: "challengeBoard"
        anchors.top: heads.visible ? heads.bottom : top.bottom
        anchors.topMargin: 4
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 8
        focus: true
        activeFocusOnTab: true
        clip: true
        reuseItems: true
        boundsBehavior: Flickable.StopAtBounds
        highlightMoveDuration: 0
        model: face.challenge.rows

        Accessible.role: Accessible.List
        Accessible.name: qsTr("World leaderboard")

        Keys.onUpPressed: board.step(-1)
        Keys.onDownPressed: board.step(1)
        Keys.onPressed: event => {
            const page = Math.max(1, Math.floor(board.height / board.rowHeight) - 1);
            const steps = {
                [Qt.Key_PageUp]: -page,
                [Qt.Key_PageDown]: page,
                [Qt.Key_Home]: -board.count,
                [Qt.Key_End]: board.count
            };
            event.accepted = event.key in steps;
            if (event.accepted)
                board.step(steps[event.key]);
        }

        delegate: ChallengeBoardRow {
            width: ListView.view.width
            height: board.rowHeight // qmllint disable unqualified
            current: ListView.isCurrentItem && ListView.view.activeFocus
        }

        ScrollMark {
            flickable: board
        }
    }

    Connections {
        target: face.challenge

        function onChanged() {
            board.showOwn();
        }
    }

    Component.onCompleted: board.showOwn()

    Text {
        objectName: "challengeBoardState"
        anchors.centerIn: board
        width: parent.width - 2 * 32
        visible: board.count === 0 && text !== ""
        horizontalAlignment: Text.AlignHCenter
        text: face.challenge.boardNote
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: Theme.secondaryText
        font.pixelSize: Theme.textSize

        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
