// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// One of a few, side by side. Left and Right move the choice while it has the keyboard.
FocusScope {
    id: bar

    // Texts, and the index of the one chosen.
    property var options: []
    property int current: 0
    property string name

    signal chosen(int index)

    implicitWidth: row.implicitWidth
    implicitHeight: Theme.controlHeight
    activeFocusOnTab: true

    Accessible.role: Accessible.RadioButton
    Accessible.name: bar.name + (bar.options.length > bar.current && bar.current >= 0 ? ": " + bar.options[bar.current] : "")
    Accessible.focusable: true

    Keys.onLeftPressed: if (bar.current > 0)
        bar.chosen(bar.current - 1)
    Keys.onRightPressed: if (bar.current < bar.options.length - 1)
        bar.chosen(bar.current + 1)

    Rectangle {
        anchors.fill: parent
        radius: Theme.radius
        color: Theme.surface
        border.width: 1
        border.color: Theme.border
    }

    Row {
        id: row

        height: parent.height

        Repeater {
            model: bar.options

            // qmllint disable unqualified
            Rectangle {
                required property int index
                required property string modelData
                readonly property bool isCurrent: index === bar.current

                width: Math.max(label.implicitWidth + 24, bar.width > 0 ? bar.width / bar.options.length : 0)
                height: bar.height
                radius: Theme.radius
                color: isCurrent ? Theme.accent : area.containsMouse ? Theme.hover : "transparent"

                Text {
                    id: label

                    anchors.centerIn: parent
                    text: parent.modelData
                    textFormat: Text.PlainText
                    color: parent.isCurrent ? Theme.accentText : Theme.text
                    font.pixelSize: Theme.textSize
                    font.bold: parent.isCurrent
                }

                MouseArea {
                    id: area

                    anchors.fill: parent
                    hoverEnabled: true
                    onClicked: {
                        bar.forceActiveFocus();
                        bar.chosen(parent.index);
                    }
                }
            }
            // qmllint enable unqualified
        }
    }

    FocusRing {}
}
