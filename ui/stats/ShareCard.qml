// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtQuick.Layouts
import Skipnest

// The ways to show the figures around.
Card {
    id: card

    required property StatisticsCardModel statistics

    title: qsTr("Share")

    Text {
        Layout.fillWidth: true
        text: qsTr("A picture of this week's figures. It is made here, and no name of yours is on it.")
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: Theme.secondaryText
        font.pixelSize: Theme.smallSize
    }

    Flow {
        Layout.fillWidth: true
        spacing: Theme.spacing

        ActionButton {
            objectName: "savePicture"
            symbol: "export"
            text: qsTr("Save picture")
            onPressed: card.statistics.savePicture()
        }

        ActionButton {
            objectName: "copyPicture"
            symbol: "copy"
            text: qsTr("Copy picture")
            onPressed: card.statistics.copyPicture()
        }

        ActionButton {
            objectName: "copyLink"
            visible: card.statistics.canCopyLink
            symbol: "copy"
            text: qsTr("Copy link")
            onPressed: card.statistics.copyLink()
        }
    }

    MessageLine {
        objectName: "shareResult"
        Layout.fillWidth: true
        kind: card.statistics.shareResultKind
        text: card.statistics.shareResult
    }
}
