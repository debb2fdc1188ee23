// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// A challenger on the board. The figures stand under the heads of ChallengeBoardFace.
Item {
    id: row

    required property string name
    required property string rank
    required property string code
    required property string country
    required property string jumps
    required property string minutes
    required property string streak
    required property string figures
    required property bool isOwn

    property bool current

    component Figure: Text {
        required property bool marked

        anchors.verticalCenter: parent.verticalCenter
        horizontalAlignment: Text.AlignRight
        textFormat: Text.PlainText
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 8
        color: marked ? Theme.accentText : Theme.text
        font.pixelSize: Theme.textSize - 1
        font.bold: marked
    }

    Accessible.role: Accessible.ListItem
    Accessible.name: row.rank + ", " + row.name + (row.country !== "" ? ", " + row.country : "") + (row.isOwn ? ", " + qsTr("your own entry") : "")
    Accessible.description: row.figures
    Accessible.focusable: true
    Accessible.focused: row.current

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: 8
        anchors.rightMargin: 8
        radius: Theme.radius
        color: row.isOwn ? Theme.accent : row.current || hover.hovered ? Theme.surface : "transparent"
    }

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: 8
        anchors.rightMargin: 8
        anchors.margins: row.isOwn ? 2 : 0
        visible: row.current
        radius: Theme.radius
        color: "transparent"
        border.width: 2
        border.color: row.isOwn ? Theme.accentText : Theme.accent
    }

    HoverHandler {
        id: hover
    }

    Figure {
        id: rankText

        x: 12
        width: 46
        marked: row.isOwn
        text: row.rank
    }

    FlagMark {
        id: flag

        anchors.left: rankText.right
        anchors.leftMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        code: row.code
        color: row.isOwn ? Theme.accentText : Theme.secondaryText
    }

    Text {
        id: nameText

        anchors.left: flag.right
        anchors.leftMargin: 8
        anchors.right: jumpsText.left
        anchors.rightMargin: 4
        anchors.verticalCenter: parent.verticalCenter
        horizontalAlignment: Text.AlignLeft
        text: row.name
        textFormat: Text.PlainText
        maximumLineCount: 1
        elide: Text.ElideRight
        color: row.isOwn ? Theme.accentText : Theme.text
        font.pixelSize: Theme.textSize
        font.bold: row.isOwn
    }

    Figure {
        id: jumpsText

        anchors.right: minutesText.left
        width: 62
        marked: row.isOwn
        text: row.jumps
    }

    Figure {
        id: minutesText

        anchors.right: streakText.left
        width: 54
        marked: row.isOwn
        text: row.minutes
    }

    Figure {
        id: streakText

        anchors.right: parent.right
        anchors.rightMargin: 18
        width: 50
        marked: row.isOwn
        text: row.streak
    }

    Hint {
        text: nameText.truncated && row.country !== "" ? row.name + ", " + row.country : nameText.truncated ? row.name : row.country
        shown: hover.hovered
    }
}
