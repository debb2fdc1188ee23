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

    onVisibleChanged: if (root.visible) {
        page.contentY = 0;
        page.forceActiveFocus();
    }

    ScrollPage {
        id: page

        function scrollBy(distance: real): void {
            page.contentY = Math.max(0, Math.min(page.contentHeight - page.height, page.contentY + distance));
        }

        anchors.fill: parent
        // Read from the top by the arrow keys; Tab goes to what can be pressed.
        focus: true
        Keys.onUpPressed: page.scrollBy(-48)
        Keys.onDownPressed: page.scrollBy(48)
        Accessible.role: Accessible.Pane
        Accessible.name: root.title
        // What came of sharing stands below what was pressed.
        onContentHeightChanged: if (root.statistics.shareResult !== "")
            page.reveal(share)

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
