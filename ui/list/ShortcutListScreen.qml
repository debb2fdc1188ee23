// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// The popover's home: every shortcut with its key, a filter, and the ways to the other screens.
ScreenPage {
    id: root

    required property PopoverModel popover
    readonly property ShortcutListScreenModel screen: root.popover.list
    readonly property bool empty: root.screen.empty

    title: "Skipnest"
    canGoBack: false

    actions: [
        IconButton {
            objectName: "openImport"
            symbol: "import"
            name: qsTr("Import")
            onPressed: root.popover.open("import")
        },
        IconButton {
            objectName: "openExport"
            symbol: "export"
            name: qsTr("Export")
            onPressed: root.popover.open("export")
        },
        IconButton {
            objectName: "openFeedback"
            symbol: "feedback"
            name: qsTr("Feedback")
            onPressed: root.popover.open("feedback")
        },
        IconButton {
            objectName: "openSettings"
            symbol: "settings"
            name: qsTr("Settings")
            onPressed: root.popover.open("settings")
        },
        ActionButton {
            objectName: "openAdd"
            kind: "primary"
            symbol: "add"
            text: qsTr("Add")
            onPressed: root.add("")
        }
    ]

    // Not by bindings of `focus`: those would take the keyboard from the filter at every letter.
    function placeFocus(): void {
        if (root.empty)
            emptyList.focus = true;
        else
            list.focus = true;
    }

    onEmptyChanged: root.placeFocus()
    Component.onCompleted: root.placeFocus()

    function add(text: string): void {
        root.popover.open("add");
        root.popover.editor.chooser.text = text;
    }

    function jump(id: string): void {
        if (!root.screen.jump(id))
            root.popover.edit(id);
    }

    function remove(id: string): void {
        const row = root.screen.rowOf(id);
        root.screen.remove(id);
        list.currentIndex = Math.min(row, list.count - 1);
    }

    // The way a row is acted on by keys, from the list and from the filter alike.
    function handleKey(event: var): void {
        const current = list.currentItem as ShortcutRow;
        const id = current ? current.recordId : "";
        const plain = (event.modifiers & (Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier)) === 0;
        if (event.key === Qt.Key_F && event.modifiers === Qt.ControlModifier)
            filterBox.forceActiveFocus();
        else if (event.key === Qt.Key_N && event.modifiers === Qt.ControlModifier)
            root.add("");
        else if (event.key === Qt.Key_Z && event.modifiers === Qt.ControlModifier && root.screen.undoText !== "")
            root.screen.undo();
        else if ((event.key === Qt.Key_Return || event.key === Qt.Key_Enter) && id !== "" && event.modifiers & Qt.ControlModifier)
            root.jump(id);
        else if ((event.key === Qt.Key_Return || event.key === Qt.Key_Enter) && id !== "" && plain)
            root.popover.edit(id);
        else if (event.key === Qt.Key_Space && id !== "" && plain && list.activeFocus && !current.isConfirmed)
            root.screen.confirm(id);
        else if (event.key === Qt.Key_Up && event.modifiers & Qt.AltModifier)
            root.screen.moveBy(id, -1);
        else if (event.key === Qt.Key_Down && event.modifiers & Qt.AltModifier)
            root.screen.moveBy(id, 1);
        else
            return;
        event.accepted = true;
    }

    Connections {
        target: root.Window.window

        function onVisibleChanged() {
            if (root.Window.window.visible) {
                root.screen.refresh();
            } else {
                root.screen.filter = "";
                // Another screen that has the keyboard keeps it.
                if (root.visible)
                    list.forceActiveFocus();
            }
        }
    }

    Connections {
        target: root.screen

        function onFilterChanged() {
            list.currentIndex = list.count > 0 ? 0 : -1;
        }
    }

    Connections {
        target: root.popover.editor

        function onSaved(id) {
            root.screen.filter = "";
            list.currentIndex = root.screen.rowOf(id);
        }
    }

    TextBox {
        id: filterBox

        objectName: "filter"
        x: Theme.margin
        y: 10
        width: parent.width - 2 * Theme.margin
        visible: !root.empty
        symbol: "search"
        placeholder: qsTr("Filter")
        onEdited: root.screen.filter = text

        Keys.onPressed: event => {
            if (event.key === Qt.Key_Escape && root.screen.filter !== "") {
                root.screen.filter = "";
                list.forceActiveFocus();
                event.accepted = true;
            } else if (event.key === Qt.Key_Down && event.modifiers === Qt.NoModifier) {
                list.forceActiveFocus();
                event.accepted = true;
            } else if (event.key === Qt.Key_Return && root.screen.nothingFound) {
                root.add(root.screen.filter);
                event.accepted = true;
            } else {
                root.handleKey(event);
            }
        }

        Binding {
            target: filterBox
            property: "text"
            value: root.screen.filter
        }
    }

    ListBannerLine {
        id: bannerLine

        objectName: "banner"
        anchors.top: filterBox.visible ? filterBox.bottom : parent.top
        anchors.topMargin: visible ? 10 : 0
        x: Theme.margin
        width: parent.width - 2 * Theme.margin
        banner: root.screen.banner
    }

    ListView {
        id: list

        property int dragRow: -1

        objectName: "shortcuts"
        anchors.top: bannerLine.bottom
        anchors.topMargin: 8
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: statistics.top
        anchors.bottomMargin: statistics.visible ? 6 : 0
        visible: count > 0
        activeFocusOnTab: true
        clip: true
        reuseItems: true
        cacheBuffer: 112
        boundsBehavior: Flickable.StopAtBounds
        keyNavigationEnabled: true
        highlightMoveDuration: 0
        highlightFollowsCurrentItem: true
        interactive: dragRow < 0
        bottomMargin: undoLine.visible ? undoLine.height + 16 : 8
        model: root.screen.rows

        Accessible.role: Accessible.List
        Accessible.name: qsTr("Shortcuts")

        // qmllint disable unqualified
        delegate: ShortcutRow {
            id: row

            width: ListView.view.width
            current: ListView.isCurrentItem && list.activeFocus
            canReorder: root.screen.filter === ""
            dragged: list.dragRow === row.index

            onEdit: root.popover.edit(row.recordId)
            onJump: root.jump(row.recordId)
            onRemove: root.remove(row.recordId)
            onConfirm: root.screen.confirm(row.recordId)
            onDragStarted: list.dragRow = row.index
            onDraggedTo: place => list.dragTo(row.mapToItem(list, place.x, place.y).y)
            onDragEnded: list.endDrag(row.recordId)

            FocusRing {
                anchors.leftMargin: 6
                anchors.rightMargin: 6
                gap: 0
                visible: row.current && list.activeFocus
            }
        }
        // qmllint enable unqualified

        moveDisplaced: Transition {
            NumberAnimation {
                property: "y"
                duration: Theme.moves ? 100 : 0
            }
        }

        // `y` is the pointer's place in the list.
        function dragTo(y: real): void {
            const step = y < 24 ? -12 : y > list.height - 24 ? 12 : 0;
            const last = Math.max(list.originY, list.originY + list.contentHeight - list.height);
            list.contentY = Math.max(list.originY, Math.min(last, list.contentY + step));
            const inside = Math.max(1, Math.min(list.height - 1, y));
            const to = list.indexAt(40, list.contentY + inside);
            if (list.dragRow < 0 || to < 0 || to === list.dragRow)
                return;
            root.screen.drag(list.dragRow, to);
            list.dragRow = to;
        }

        function endDrag(id: string): void {
            if (list.dragRow < 0)
                return;
            list.currentIndex = list.dragRow;
            list.dragRow = -1;
            root.screen.drop(id);
        }

        Keys.onPressed: event => {
            root.handleKey(event);
            if (event.accepted)
                return;
            const plain = (event.modifiers & (Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier)) === 0;
            const current = list.currentItem as ShortcutRow;
            if (event.key === Qt.Key_Delete && plain && current) {
                root.remove(current.recordId);
                event.accepted = true;
            } else if (event.key === Qt.Key_Escape && root.screen.filter !== "") {
                root.screen.filter = "";
                event.accepted = true;
            } else if (event.key === Qt.Key_Home || event.key === Qt.Key_End) {
                list.currentIndex = event.key === Qt.Key_Home ? 0 : list.count - 1;
                event.accepted = true;
            } else if (event.key === Qt.Key_PageUp || event.key === Qt.Key_PageDown) {
                const page = Math.max(1, Math.floor(list.height / 56) - 1);
                list.currentIndex = Math.max(0, Math.min(list.count - 1, list.currentIndex + (event.key === Qt.Key_PageUp ? -page : page)));
                event.accepted = true;
            } else if (event.key === Qt.Key_Backspace && root.screen.filter !== "") {
                filterBox.forceActiveFocus();
                root.screen.filter = root.screen.filter.slice(0, -1);
                event.accepted = true;
            } else if (plain && event.text.trim() !== "" && event.text >= " " && event.key !== Qt.Key_Delete && event.key !== Qt.Key_Backspace) {
                filterBox.forceActiveFocus();
                root.screen.filter += event.text;
                filterBox.input.cursorPosition = filterBox.input.length;
                event.accepted = true;
            }
        }

        ScrollMark {
            flickable: list
        }
    }

    EmptyList {
        id: emptyList

        objectName: "emptyList"
        anchors.top: bannerLine.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: statistics.top
        visible: root.empty || root.screen.nothingFound
        filter: root.screen.nothingFound ? root.screen.filter : ""
        onAdd: root.add(filter)

        Keys.onPressed: event => root.handleKey(event)
    }

    // With nothing to press yet there is nothing to count.
    StatisticsCard {
        id: statistics

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: visible ? Theme.spacing : 0
        visible: !root.empty || root.popover.statistics.hasJumps
        height: visible ? implicitHeight : 0
        statistics: root.popover.statistics
        onOpened: root.popover.open("statistics")
        onMomentClosed: root.placeFocus()
    }

    UndoLine {
        id: undoLine

        objectName: "undoLine"
        x: Theme.margin
        width: parent.width - 2 * Theme.margin
        anchors.bottom: statistics.top
        anchors.bottomMargin: 10
        text: root.screen.undoText
        onUndo: {
            root.screen.undo();
            list.forceActiveFocus();
        }
    }
}
