// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtQuick.Layouts
import Skipnest

// How the extension gets into the chosen browser, and whether it has said hello.
ScrollPage {
    id: guide

    required property BrowserSetup setup
    readonly property bool connected: setup.state === "connected"
    readonly property bool reachable: setup.state !== "unreachable"

    // What is typed or chosen in the browser, to be read and copied.
    component Given: RowLayout {
        id: given

        required property string value
        required property string copyName

        Layout.fillWidth: true
        spacing: 6

        Rectangle {
            Layout.fillWidth: true
            implicitHeight: Math.max(Theme.controlHeight, label.implicitHeight + 12)
            radius: Theme.radius
            color: Theme.window
            border.width: 1
            border.color: Theme.border

            Text {
                id: label

                anchors.left: parent.left
                anchors.right: parent.right
                anchors.margins: 8
                anchors.verticalCenter: parent.verticalCenter
                text: given.value
                textFormat: Text.PlainText
                wrapMode: Text.WrapAnywhere
                color: Theme.text
                font.pixelSize: Theme.smallSize
                font.family: "monospace"

                Accessible.role: Accessible.StaticText
                Accessible.name: given.value
            }
        }

        IconButton {
            symbol: "copy"
            name: given.copyName
            onPressed: guide.setup.copy(given.value)
        }
    }

    MessageLine {
        objectName: "browserState"
        width: parent.width
        kind: guide.setup.problem !== "" ? "danger" : guide.connected ? "success" : guide.reachable ? "info" : "warning"
        text: {
            if (guide.setup.problem !== "")
                return guide.setup.problem;
            if (guide.connected)
                return qsTr("%1 is connected. Press its shortcut while it is in front: the bar shows its tabs.").arg(guide.setup.name);
            if (!guide.reachable)
                return qsTr("This %1 runs in a sandbox that starts no program outside of it, so Skipnest cannot be reached from there. Its ordinary package works.").arg(guide.setup.name);
            return qsTr("Waiting for %1 …").arg(guide.setup.name);
        }
    }

    Card {
        width: parent.width
        visible: guide.reachable && guide.setup.extension !== ""
        title: qsTr("Load the extension, once for each profile")

        BrowserStep {
            number: 1
            done: guide.connected
            text: qsTr("Type this address in %1:").arg(guide.setup.name)

            Given {
                objectName: "extensionsPage"
                value: guide.setup.extensionsPage
                copyName: qsTr("Copy the address")
            }
        }

        BrowserStep {
            number: 2
            done: guide.connected
            text: guide.setup.keepsSignedOnly ? qsTr("Click “Load Temporary Add-on…”.") : qsTr("Switch on “Developer mode” at the top right, then click “Load unpacked”.")
        }

        BrowserStep {
            number: 3
            done: guide.connected
            text: guide.setup.keepsSignedOnly ? qsTr("Choose this file:") : qsTr("Choose this folder:")

            Given {
                objectName: "extensionFolder"
                value: guide.setup.extension
                copyName: guide.setup.keepsSignedOnly ? qsTr("Copy the file's path") : qsTr("Copy the folder's path")
            }

            ActionButton {
                objectName: "openExtensionFolder"
                symbol: "folder"
                text: qsTr("Open folder")
                onPressed: guide.setup.openFolder()
            }
        }
    }

    MessageLine {
        objectName: "signedNote"
        width: parent.width
        kind: "warning"
        text: guide.reachable && guide.setup.keepsSignedOnly ? qsTr("A temporary add-on leaves when %1 ends. To stay, it has to be a file signed by Mozilla: release versions and ESR take no other. Developer Edition and Nightly do, with xpinstall.signatures.required off in about:config.").arg(guide.setup.name) : ""
    }

    SettingText {
        width: parent.width
        visible: guide.reachable && guide.setup.manifest !== ""
        description: qsTr("The extension reads titles and addresses of open tabs, never pages, and nothing in private windows. They stay in memory on this computer. %1 learns which program to start from %2; `skipnest browser remove` takes that back.").arg(guide.setup.name).arg(guide.setup.manifest)
    }
}
