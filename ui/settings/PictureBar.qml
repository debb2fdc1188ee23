// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// One of a few drawings. Left and Right move the choice while it has the keyboard.
FocusScope {
    id: bar

    property var options: []
    property var symbols: []
    property int current: 0
    property string name

    signal chosen(int index)

    implicitWidth: row.implicitWidth
    implicitHeight: row.implicitHeight
    activeFocusOnTab: true

    Accessible.role: Accessible.RadioButton
    Accessible.name: bar.current >= 0 && bar.current < bar.options.length ? bar.name + ": " + bar.options[bar.current] : bar.name
    Accessible.focusable: true

    Keys.onLeftPressed: if (bar.current > 0)
        bar.chosen(bar.current - 1)
    Keys.onRightPressed: if (bar.current < bar.options.length - 1)
        bar.chosen(bar.current + 1)

    Row {
        id: row

        spacing: 8

        Repeater {
            model: bar.options

            // qmllint disable unqualified
            Rectangle {
                id: tile

                required property int index
                required property string modelData
                readonly property bool isCurrent: index === bar.current

                objectName: bar.objectName + index
                width: 60
                height: 58
                radius: Theme.radius
                color: area.containsMouse && !isCurrent ? Theme.hover : Theme.window
                border.width: isCurrent ? 2 : 1
                border.color: isCurrent ? Theme.accent : Theme.border

                Symbol {
                    anchors.horizontalCenter: parent.horizontalCenter
                    y: 10
                    name: bar.symbols[tile.index] ?? ""
                    color: tile.isCurrent ? Theme.accent : Theme.text
                    size: 22
                }

                Text {
                    anchors.bottom: parent.bottom
                    anchors.bottomMargin: 5
                    x: 3
                    width: parent.width - 6
                    horizontalAlignment: Text.AlignHCenter
                    text: tile.modelData
                    textFormat: Text.PlainText
                    elide: Text.ElideRight
                    color: tile.isCurrent ? Theme.text : Theme.secondaryText
                    font.pixelSize: Theme.smallSize
                    font.bold: tile.isCurrent
                }

                MouseArea {
                    id: area

                    anchors.fill: parent
                    hoverEnabled: true
                    onClicked: {
                        bar.forceActiveFocus();
                        bar.chosen(tile.index);
                    }
                }
            }
            // qmllint enable unqualified
        }
    }

    FocusRing {
        gap: 4
        anchors.rightMargin: bar.width - row.width - gap
    }
}
