// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtQuick.Layouts
import Skipnest

// One thing to do: its number, what to do, and below that what is needed for it.
RowLayout {
    id: step

    property int number
    property bool done: false
    property string text
    default property alias content: column.data

    Layout.fillWidth: true
    spacing: 10

    Rectangle {
        Layout.alignment: Qt.AlignTop
        implicitWidth: 24
        implicitHeight: 24
        radius: 12
        color: "transparent"
        border.width: 1
        border.color: step.done ? Theme.success : Theme.border

        Text {
            anchors.centerIn: parent
            visible: !step.done
            text: step.number
            textFormat: Text.PlainText
            color: Theme.text
            font.pixelSize: Theme.smallSize
            font.bold: true
        }

        Symbol {
            anchors.centerIn: parent
            visible: step.done
            name: "check"
            color: Theme.success
            size: 14
        }
    }

    ColumnLayout {
        id: column

        Layout.fillWidth: true
        spacing: 6

        Text {
            Layout.fillWidth: true
            Layout.minimumHeight: 24
            text: step.text
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            verticalAlignment: Text.AlignVCenter
            color: Theme.text
            font.pixelSize: Theme.textSize

            Accessible.role: Accessible.StaticText
            Accessible.name: step.number + ". " + step.text
        }
    }
}
