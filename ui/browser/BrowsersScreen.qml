// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// The browsers whose tabs can be listed, and for each the way there.
ScreenPage {
    id: root

    required property PopoverModel popover
    readonly property BrowserSetup setup: popover.browsers

    function goBack(): void {
        if (!root.setup.leave())
            root.popover.open("settings");
    }

    title: setup.chosen === "" ? qsTr("Browser tabs") : setup.name
    onBack: root.goBack()
    Keys.onEscapePressed: root.goBack()

    ScrollPage {
        id: list

        anchors.fill: parent
        visible: root.setup.chosen === ""

        Text {
            width: parent.width
            text: root.setup.summary === "" ? qsTr("No browser was found whose tabs could be listed.") : qsTr("A browser tells of its tabs only through an extension. Choose one to see how it is loaded.")
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.secondaryText
            font.pixelSize: Theme.textSize
        }

        Repeater {
            model: root.setup.rows

            // qmllint disable unqualified
            Pressable {
                id: row

                required property int index
                required property string browserId
                required property string title
                required property string state
                required property string note

                objectName: "browser" + index
                width: list.width - 2 * list.sideMargin
                height: 48
                focus: index === 0
                name: title + ": " + note
                onPressed: root.setup.choose(browserId)

                Rectangle {
                    anchors.fill: parent
                    radius: Theme.radius
                    color: row.hovered ? Theme.hover : Theme.surface
                    border.width: 1
                    border.color: Theme.border
                }

                Symbol {
                    id: mark

                    anchors.left: parent.left
                    anchors.leftMargin: 12
                    anchors.verticalCenter: parent.verticalCenter
                    name: row.state === "connected" ? "check" : row.state === "new" ? "add" : "warning"
                    color: row.state === "connected" ? Theme.success : row.state === "new" ? Theme.secondaryText : Theme.warning
                    size: 18
                }

                Text {
                    anchors.left: mark.right
                    anchors.leftMargin: 10
                    anchors.right: noteText.left
                    anchors.rightMargin: 8
                    anchors.verticalCenter: parent.verticalCenter
                    text: row.title
                    textFormat: Text.PlainText
                    elide: Text.ElideRight
                    color: Theme.text
                    font.pixelSize: Theme.textSize
                }

                Text {
                    id: noteText

                    anchors.right: next.left
                    anchors.rightMargin: 6
                    anchors.verticalCenter: parent.verticalCenter
                    text: row.note
                    textFormat: Text.PlainText
                    color: row.state === "connected" ? Theme.success : Theme.secondaryText
                    font.pixelSize: Theme.smallSize
                }

                Symbol {
                    id: next

                    anchors.right: parent.right
                    anchors.rightMargin: 10
                    anchors.verticalCenter: parent.verticalCenter
                    name: "next"
                    color: Theme.secondaryText
                    size: 14
                }

                FocusRing {}
            }
            // qmllint enable unqualified
        }
    }

    Loader {
        anchors.fill: parent
        active: root.setup.chosen !== ""
        focus: active
        onLoaded: item.forceActiveFocus() // qmllint disable missing-property
        // qmllint disable unqualified
        sourceComponent: BrowserGuide {
            setup: root.setup
        }
        // qmllint enable unqualified
    }
}
