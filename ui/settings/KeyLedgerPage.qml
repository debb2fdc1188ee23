// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// Who has which key, by holder, below a field to find a key or a program.
FocusScope {
    id: page

    required property KeyLedgerRows ledger

    TextBox {
        id: find

        objectName: "findKey"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: Theme.margin
        focus: true
        symbol: "search"
        placeholder: qsTr("Find a key or a program")
        text: page.ledger.filter
        onEdited: page.ledger.filter = find.text
        Keys.onDownPressed: list.forceActiveFocus()
    }

    Text {
        id: summary

        anchors.left: find.left
        anchors.right: find.right
        anchors.top: find.bottom
        anchors.topMargin: 6
        text: page.ledger.summary
        textFormat: Text.PlainText
        elide: Text.ElideRight
        color: page.ledger.hasRefused ? Theme.warning : Theme.secondaryText
        font.pixelSize: Theme.smallSize
    }

    ListView {
        id: list

        objectName: "ledgerList"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: summary.bottom
        anchors.topMargin: 6
        anchors.bottom: parent.bottom
        clip: true
        reuseItems: true
        activeFocusOnTab: true
        boundsBehavior: Flickable.StopAtBounds
        highlightMoveDuration: 0
        model: page.ledger

        Accessible.role: Accessible.List
        Accessible.name: qsTr("Keys")

        section.property: "group"
        // qmllint disable unqualified
        section.delegate: Text {
            required property string section

            x: Theme.margin
            width: list.width - 2 * Theme.margin
            topPadding: 12
            bottomPadding: 4
            text: section
            textFormat: Text.PlainText
            elide: Text.ElideRight
            color: Theme.secondaryText
            font.pixelSize: Theme.smallSize
            font.bold: true

            Accessible.role: Accessible.Heading
            Accessible.name: section
        }

        delegate: Item {
            id: row

            required property int index
            required property string holder
            required property var keys
            required property bool works

            width: list.width
            height: Math.max(40, label.implicitHeight + 12)

            Accessible.role: Accessible.ListItem
            Accessible.name: row.keys.join("+") + ": " + row.holder

            Rectangle {
                anchors.fill: parent
                anchors.leftMargin: Theme.spacing
                anchors.rightMargin: Theme.spacing
                radius: Theme.radius
                color: "transparent"
                border.width: 2
                border.color: Theme.accent
                visible: list.activeFocus && row.ListView.isCurrentItem
            }

            Text {
                id: label

                anchors.left: parent.left
                anchors.leftMargin: Theme.margin
                anchors.right: badge.left
                anchors.rightMargin: 10
                anchors.verticalCenter: parent.verticalCenter
                text: row.holder
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                maximumLineCount: 2
                elide: Text.ElideRight
                color: row.works ? Theme.text : Theme.warning
                font.pixelSize: Theme.textSize - 1
            }

            KeyBadge {
                id: badge

                anchors.right: parent.right
                anchors.rightMargin: Theme.margin
                anchors.verticalCenter: parent.verticalCenter
                keys: row.keys
                muted: !row.works
            }
        }
        // qmllint enable unqualified

        ScrollMark {
            flickable: list
        }
    }

    Text {
        anchors.centerIn: list
        visible: list.count === 0
        text: page.ledger.filter === "" ? qsTr("No key is known yet.") : qsTr("No key has these words.")
        textFormat: Text.PlainText
        color: Theme.secondaryText
        font.pixelSize: Theme.textSize
    }
}
