// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtQuick.Layouts
import Skipnest

// Everything that is known of the person's jumps, and the ways to show it around.
ScreenPage {
    id: root

    required property PopoverModel popover
    readonly property StatisticsCardModel statistics: popover.statistics

    title: qsTr("Your jumps")
    onBack: root.popover.back()

    Connections {
        target: root.statistics

        // Below what was pressed, and maybe below the window's end.
        function onShareChanged() {
            if (root.visible)
                Qt.callLater(() => page.reveal(share));
        }
    }

    ScrollPage {
        id: page

        anchors.fill: parent

        Card {
            width: parent.width

            RowLayout {
                Layout.fillWidth: true
                spacing: Theme.spacing

                StatisticsFigure {
                    objectName: "weekFigure"
                    value: root.statistics.weekValue
                    label: root.statistics.weekLabel
                }

                StatisticsFigure {
                    objectName: "streakFigure"
                    value: root.statistics.streakValue
                    label: root.statistics.streakLabel
                }

                StatisticsFigure {
                    objectName: "savedFigure"
                    value: root.statistics.savedValue
                    label: qsTr("saved this week")
                }
            }
        }

        Text {
            width: parent.width
            visible: !root.statistics.hasJumps
            text: root.statistics.details
            textFormat: Text.PlainText
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            color: Theme.secondaryText
            font.pixelSize: Theme.textSize
        }

        Card {
            width: parent.width
            visible: root.statistics.hasJumps
            title: qsTr("Week by week")

            WeekChart {
                objectName: "weekChart"
                Layout.fillWidth: true
                Layout.preferredHeight: 110
                bars: root.statistics.bars
            }

            Text {
                Layout.fillWidth: true
                text: root.statistics.allText
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: Theme.text
                font.pixelSize: Theme.textSize - 1
            }

            Text {
                Layout.fillWidth: true
                visible: text !== ""
                text: root.statistics.waysText
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: Theme.secondaryText
                font.pixelSize: Theme.smallSize
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
                        objectName: "challengeTitle"
                        Layout.fillWidth: true
                        text: root.statistics.challengeTitle
                        textFormat: Text.PlainText
                        wrapMode: Text.Wrap
                        color: Theme.text
                        font.pixelSize: Theme.textSize
                    }

                    Text {
                        objectName: "challengeText"
                        Layout.fillWidth: true
                        text: root.statistics.challengeText
                        textFormat: Text.PlainText
                        wrapMode: Text.Wrap
                        color: Theme.secondaryText
                        font.pixelSize: Theme.smallSize
                    }
                }

                ActionButton {
                    objectName: "openChallenge"
                    focus: true
                    text: root.statistics.isJoined ? qsTr("Show the board") : qsTr("Take a look")
                    onPressed: root.popover.open("challenge")
                }
            }
        }

        Card {
            width: parent.width
            visible: !root.statistics.targets.isEmpty
            title: qsTr("Most used")

            Repeater {
                model: root.statistics.targets

                // qmllint disable unqualified
                Item {
                    id: target

                    required property string name
                    required property string count
                    required property real length

                    Layout.fillWidth: true
                    implicitHeight: 26

                    Accessible.role: Accessible.ListItem
                    Accessible.name: name + ": " + count

                    Text {
                        anchors.left: parent.left
                        anchors.right: number.left
                        anchors.rightMargin: 8
                        text: target.name
                        textFormat: Text.PlainText
                        maximumLineCount: 1
                        elide: Text.ElideRight
                        color: Theme.text
                        font.pixelSize: Theme.textSize - 1
                    }

                    Text {
                        id: number

                        anchors.right: parent.right
                        text: target.count
                        textFormat: Text.PlainText
                        color: Theme.secondaryText
                        font.pixelSize: Theme.textSize - 1
                    }

                    Rectangle {
                        anchors.bottom: parent.bottom
                        width: parent.width
                        height: 4
                        radius: 2
                        color: Theme.hover
                    }

                    Rectangle {
                        anchors.bottom: parent.bottom
                        width: Math.max(4, parent.width * target.length)
                        height: 4
                        radius: 2
                        color: Theme.accent
                    }
                }
                // qmllint enable unqualified
            }
        }

        ShareCard {
            id: share

            width: parent.width
            visible: root.statistics.hasJumps
            statistics: root.statistics
        }
    }
}
