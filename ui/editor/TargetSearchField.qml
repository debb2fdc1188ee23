// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// Choosing a target: a field to type into, the scope, and what was found. The arrows and Return
// work from the field.
FocusScope {
    id: search

    required property TargetChooser chooser

    TextBox {
        id: box

        objectName: "targetSearch"
        x: Theme.margin
        y: 14
        width: parent.width - 2 * Theme.margin
        height: Theme.controlHeight + 4
        focus: true
        symbol: "search"
        placeholder: qsTr("Name of an application, file or folder")
        onEdited: search.chooser.text = text

        // The key ends here: on the form that follows, Return saves.
        Keys.onReturnPressed: search.chooser.choose(results.currentIndex)
        Keys.onEnterPressed: search.chooser.choose(results.currentIndex)
        Keys.onUpPressed: results.step(-1)
        Keys.onDownPressed: results.step(1)

        Binding {
            target: box
            property: "text"
            value: search.chooser.text
        }
    }

    ChoiceBar {
        id: scopeBar

        objectName: "searchScope"
        anchors.top: box.bottom
        anchors.topMargin: 10
        x: Theme.margin
        width: parent.width - 2 * Theme.margin
        name: qsTr("Search in")
        options: [qsTr("Applications"), qsTr("Everything")]
        current: search.chooser.scope
        onChosen: index => search.chooser.scope = index
    }

    ListView {
        id: results

        // The person has gone to a row; until then the best one is current.
        property bool moved: false

        function step(rows: int): void {
            results.moved = true;
            results.currentIndex = Math.max(0, Math.min(results.count - 1, results.currentIndex + rows));
        }

        objectName: "searchResults"
        anchors.top: scopeBar.bottom
        anchors.topMargin: 10
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: note.visible ? note.top : parent.bottom
        anchors.bottomMargin: 8
        clip: true
        reuseItems: true
        boundsBehavior: Flickable.StopAtBounds
        highlightMoveDuration: 0
        model: search.chooser.results

        Accessible.role: Accessible.List
        Accessible.name: qsTr("Found")

        delegate: FoundTargetRow {
            id: row

            width: ListView.view.width
            current: ListView.isCurrentItem
            onChosen: search.chooser.choose(row.index) // qmllint disable unqualified
        }

        ScrollMark {
            flickable: results
        }
    }

    Connections {
        target: search.chooser

        function onTextChanged() {
            results.moved = false;
        }

        function onStateChanged() {
            if (!results.moved)
                results.currentIndex = results.count > 0 ? 0 : -1;
        }
    }

    Column {
        anchors.centerIn: results
        width: parent.width - 2 * 32
        visible: results.count === 0
        spacing: 14

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            name: "search"
            color: Theme.secondaryText
            size: 32
        }

        Text {
            objectName: "searchHint"
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            // The word joiner keeps the path in one piece.
            text: search.chooser.searching ? qsTr("Searching…") : search.chooser.note !== "" ? search.chooser.note : qsTr("Type a part of the name, or a path such as ~/\u2060Documents. You can also drop a file or folder here.")
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: search.chooser.note !== "" && !search.chooser.searching ? Theme.text : Theme.secondaryText
            font.pixelSize: Theme.textSize

            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        ActionButton {
            objectName: "searchEverything"
            anchors.horizontalCenter: parent.horizontalCenter
            visible: search.chooser.canWiden
            text: qsTr("Search everything")
            onPressed: {
                search.chooser.scope = 1;
                box.forceActiveFocus();
            }
        }
    }

    MessageLine {
        id: note

        anchors.bottom: parent.bottom
        anchors.bottomMargin: 12
        x: Theme.margin
        width: parent.width - 2 * Theme.margin
        text: results.count > 0 ? search.chooser.note : ""
    }
}
