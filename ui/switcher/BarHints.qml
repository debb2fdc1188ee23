// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// Which keys do what at this level, quietly.
Item {
    id: hints

    required property SwitcherBarModel bar
    readonly property bool isHeld: !bar.pinned && bar.level === "windows"
    readonly property var pairs: {
        const choose = qsTr("choose");
        const open = {
            "key": "↵",
            "does": qsTr("open")
        };
        const back = {
            "key": "Esc",
            "does": qsTr("back")
        };
        if (bar.level === "tabs")
            return [{
                    "key": "↑ ↓",
                    "does": choose
                }, open, back];
        if (bar.level === "search")
            return [{
                    "key": "↑ ↓",
                    "does": choose
                }, open, back];
        const across = {
            "key": "← →",
            "does": choose
        };
        const close = {
            "key": "Esc",
            "does": qsTr("close")
        };
        if (!bar.browser)
            return [across, open, close];
        return [across, {
                "key": "↓",
                "does": qsTr("tabs")
            }, open, close];
    }

    Accessible.ignored: true

    Text {
        anchors.verticalCenter: parent.verticalCenter
        visible: hints.isHeld
        text: qsTr("Keep holding to go from window to window, let go to open")
        textFormat: Text.PlainText
        color: Theme.secondaryText
        font.pixelSize: Theme.smallSize
    }

    Row {
        anchors.verticalCenter: parent.verticalCenter
        visible: !hints.isHeld
        spacing: 16

        Repeater {
            model: hints.pairs

            Row {
                id: pair

                required property var modelData

                spacing: 6

                Rectangle {
                    width: Math.max(22, cap.implicitWidth + 12)
                    height: 20
                    radius: 4
                    color: Theme.surface
                    border.width: 1
                    border.color: Theme.border

                    Text {
                        id: cap

                        anchors.centerIn: parent
                        text: pair.modelData.key
                        textFormat: Text.PlainText
                        color: Theme.secondaryText
                        font.pixelSize: 11
                    }
                }

                Text {
                    anchors.verticalCenter: parent.verticalCenter
                    text: pair.modelData.does
                    textFormat: Text.PlainText
                    color: Theme.secondaryText
                    font.pixelSize: Theme.smallSize
                }
            }
        }
    }
}
