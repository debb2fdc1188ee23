// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// Jumps of the last weeks, a bar each; the last one ends today.
Row {
    id: chart

    required property WeekBars bars
    // With the number above each bar and the day it ends with below; without, for the eye alone.
    property bool labelled: true
    readonly property int labelHeight: labelled ? 18 : 0
    readonly property int count: 8

    spacing: labelled ? 6 : 2

    Accessible.role: Accessible.List
    Accessible.name: qsTr("Jumps of the last weeks")
    Accessible.ignored: !labelled

    Repeater {
        model: chart.bars

        // qmllint disable unqualified
        Item {
            id: bar

            required property real length
            required property string count
            required property string label
            required property string spoken
            required property bool isCurrent

            width: (chart.width - (chart.count - 1) * chart.spacing) / chart.count
            height: chart.height

            Accessible.role: Accessible.ListItem
            Accessible.name: spoken
            Accessible.ignored: !chart.labelled

            Text {
                anchors.bottom: body.top
                anchors.bottomMargin: 2
                anchors.horizontalCenter: parent.horizontalCenter
                width: parent.width + chart.spacing
                visible: chart.labelled
                text: bar.count
                textFormat: Text.PlainText
                horizontalAlignment: Text.AlignHCenter
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: 8
                color: bar.isCurrent ? Theme.text : Theme.secondaryText
                font.pixelSize: Theme.smallSize
                font.bold: bar.isCurrent
            }

            Rectangle {
                id: body

                anchors.bottom: parent.bottom
                anchors.bottomMargin: chart.labelHeight
                width: parent.width
                height: Math.max(2, (chart.height - 2 * chart.labelHeight) * bar.length)
                radius: Math.min(3, height / 2)
                color: bar.isCurrent ? Theme.accent : Theme.secondaryText
                opacity: bar.isCurrent ? 1 : 0.55
            }

            Text {
                anchors.bottom: parent.bottom
                anchors.horizontalCenter: parent.horizontalCenter
                width: parent.width + chart.spacing
                visible: chart.labelled
                text: bar.label
                textFormat: Text.PlainText
                horizontalAlignment: Text.AlignHCenter
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: 8
                color: Theme.secondaryText
                font.pixelSize: 11
            }
        }
        // qmllint enable unqualified
    }
}
