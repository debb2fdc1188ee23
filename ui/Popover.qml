// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// The popover: one screen at a time. The list is always there; the others are made when they are
// first opened and stay.
FocusScope {
    id: root

    required property PopoverModel popover

    width: 440
    height: 620
    focus: true

    Accessible.role: Accessible.Pane
    Accessible.name: "Skipnest"

    Keys.onEscapePressed: {
        if (root.popover.screen === "list")
            root.popover.close();
        else
            root.popover.back();
    }

    ShortcutListScreen {
        anchors.fill: parent
        popover: root.popover
        visible: root.popover.screen === "list"
        focus: visible
    }

    LazyScreen {
        anchors.fill: parent
        shown: root.popover.screen === "add"
        // qmllint disable unqualified
        sourceComponent: EditorScreen {
            popover: root.popover
        }
        // qmllint enable unqualified
    }

    LazyScreen {
        anchors.fill: parent
        shown: root.popover.screen === "import"
        // qmllint disable unqualified
        sourceComponent: ImportScreen {
            popover: root.popover
        }
        // qmllint enable unqualified
    }

    LazyScreen {
        anchors.fill: parent
        shown: root.popover.screen === "export"
        // qmllint disable unqualified
        sourceComponent: ExportScreen {
            popover: root.popover
        }
        // qmllint enable unqualified
    }

    LazyScreen {
        anchors.fill: parent
        shown: root.popover.screen === "settings"
        // qmllint disable unqualified
        sourceComponent: SettingsScreen {
            popover: root.popover
        }
        // qmllint enable unqualified
    }

    LazyScreen {
        anchors.fill: parent
        shown: root.popover.screen === "feedback"
        // qmllint disable unqualified
        sourceComponent: FeedbackScreen {
            popover: root.popover
        }
        // qmllint enable unqualified
    }

    LazyScreen {
        anchors.fill: parent
        shown: root.popover.screen === "statistics"
        // qmllint disable unqualified
        sourceComponent: StatisticsScreen {
            popover: root.popover
        }
        // qmllint enable unqualified
    }

    LazyScreen {
        anchors.fill: parent
        shown: root.popover.screen === "challenge"
        // qmllint disable unqualified
        sourceComponent: ChallengeScreen {
            popover: root.popover
        }
        // qmllint enable unqualified
    }

    LazyScreen {
        anchors.fill: parent
        shown: root.popover.screen === "crash"
        // qmllint disable unqualified
        sourceComponent: CrashScreen {
            popover: root.popover
        }
        // qmllint enable unqualified
    }

    LazyScreen {
        anchors.fill: parent
        shown: root.popover.screen === "browsers"
        // qmllint disable unqualified
        sourceComponent: BrowsersScreen {
            popover: root.popover
        }
        // qmllint enable unqualified
    }

    MessageLine {
        id: problemLine

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: Theme.margin
        kind: "danger"
        closable: true
    }

    Connections {
        target: root.popover

        function onProblem(message) {
            problemLine.text = message;
        }

        function onScreenChanged() {
            problemLine.text = "";
        }
    }

    DropArea {
        anchors.fill: parent
        keys: ["text/uri-list"]
        onDropped: drop => {
            const urls = [];
            for (const url of drop.urls)
                urls.push(url.toString());
            root.popover.addDropped(urls);
            drop.accept(Qt.CopyAction);
        }

        Rectangle {
            anchors.fill: parent
            visible: parent.containsDrag
            color: "transparent"
            border.width: 3
            border.color: Theme.accent
        }
    }

    // The window has no frame of its own.
    Rectangle {
        anchors.fill: parent
        color: "transparent"
        border.width: 1
        border.color: Theme.border
    }
}
