// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// The country of a flag: a line that unfolds into a search. Typing on the folded line begins one;
// there the arrows and Return take a row, Escape none.
FocusScope {
    id: field

    required property CountryChoices choices
    property string code
    property string countryName
    property string name
    readonly property int rowHeight: 32

    signal chosen(string code)

    function unfold(typed: string): void {
        field.choices.text = typed;
        panel.visible = true;
        search.input.forceActiveFocus();
        field.showCurrent();
    }

    function fold(): void {
        if (panel.visible && field.activeFocus)
            head.forceActiveFocus(Qt.TabFocusReason);
        panel.visible = false;
        field.choices.text = "";
    }

    function take(row: int): void {
        const code = field.choices.codeAt(row);
        if (code === "")
            return;
        field.fold();
        field.chosen(code);
    }

    function step(rows: int): void {
        list.currentIndex = Math.max(0, Math.min(list.count - 1, list.currentIndex + rows));
    }

    function showCurrent(): void {
        list.currentIndex = field.choices.text === "" ? Math.max(0, field.choices.rowOfCode(field.code)) : 0;
        list.positionViewAtIndex(list.currentIndex, ListView.Center);
    }

    implicitWidth: 220
    implicitHeight: head.height + (panel.visible ? panel.height + 4 : 0)
    height: implicitHeight
    onActiveFocusChanged: if (!field.activeFocus)
        field.fold()

    Pressable {
        id: head

        objectName: field.objectName + "Head"
        width: parent.width
        height: Theme.controlHeight
        focus: true
        name: field.name + ": " + shown.text
        Accessible.role: Accessible.ComboBox
        onPressed: {
            if (panel.visible)
                field.fold();
            else
                field.unfold("");
        }
        Keys.onUpPressed: field.unfold("")
        Keys.onDownPressed: field.unfold("")
        Keys.onPressed: event => {
            const isText = event.text.length > 0 && event.text.trim() === event.text && event.text >= "0";
            event.accepted = isText && !(event.modifiers & (Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier)) && event.key !== Qt.Key_Delete;
            if (event.accepted)
                field.unfold(event.text);
        }

        Rectangle {
            anchors.fill: parent
            radius: Theme.radius
            color: head.hovered ? Theme.hover : Theme.surface
            border.width: 1
            border.color: Theme.border
        }

        FlagMark {
            id: flag

            x: 10
            anchors.verticalCenter: parent.verticalCenter
            code: field.code
        }

        Text {
            id: shown

            anchors.left: field.code === "" ? parent.left : flag.right
            anchors.right: mark.left
            anchors.leftMargin: field.code === "" ? 10 : 8
            anchors.rightMargin: 10
            anchors.verticalCenter: parent.verticalCenter
            text: field.code === "" ? qsTr("Choose a country") : field.countryName
            textFormat: Text.PlainText
            elide: Text.ElideRight
            color: field.code === "" ? Theme.secondaryText : Theme.text
            font.pixelSize: Theme.textSize
        }

        Symbol {
            id: mark

            anchors.right: parent.right
            anchors.rightMargin: 10
            anchors.verticalCenter: parent.verticalCenter
            name: panel.visible ? "up" : "down"
            color: Theme.secondaryText
            size: 16
        }

        FocusRing {}
    }

    Item {
        id: panel

        anchors.top: head.bottom
        anchors.topMargin: 4
        width: parent.width
        height: search.height + 4 + list.height
        visible: false

        TextBox {
            id: search

            objectName: field.objectName + "Search"
            width: parent.width
            symbol: "search"
            placeholder: qsTr("Country")
            text: field.choices.text
            onEdited: {
                field.choices.text = search.text;
                field.showCurrent();
            }

            Keys.onReturnPressed: field.take(list.currentIndex)
            Keys.onEnterPressed: field.take(list.currentIndex)
            Keys.onEscapePressed: field.fold()
            Keys.onUpPressed: field.step(-1)
            Keys.onDownPressed: field.step(1)
            Keys.onPressed: event => {
                if (event.key === Qt.Key_PageUp || event.key === Qt.Key_PageDown) {
                    field.step(event.key === Qt.Key_PageUp ? -5 : 5);
                    event.accepted = true;
                }
            }
        }

        Rectangle {
            anchors.fill: list
            radius: Theme.radius
            color: Theme.window
            border.width: 1
            border.color: Theme.border
        }

        ListView {
            id: list

            objectName: field.objectName + "List"
            anchors.top: search.bottom
            anchors.topMargin: 4
            width: parent.width
            height: 6.5 * field.rowHeight
            clip: true
            reuseItems: true
            // Rows made ahead would be of countries that typing has taken away.
            cacheBuffer: 0
            boundsBehavior: Flickable.StopAtBounds
            highlightMoveDuration: 0
            model: field.choices

            Accessible.role: Accessible.List
            Accessible.name: field.name

            // qmllint disable unqualified
            delegate: Rectangle {
                id: row

                required property int index
                required property string code
                required property string name
                readonly property bool current: ListView.isCurrentItem

                width: list.width
                height: field.rowHeight
                radius: Theme.radius
                color: row.current ? Theme.accent : area.containsMouse ? Theme.hover : "transparent"

                Accessible.role: Accessible.ListItem
                Accessible.name: row.name
                Accessible.focusable: true
                Accessible.focused: row.current
                Accessible.onPressAction: field.take(row.index)

                FlagMark {
                    id: rowFlag

                    x: 10
                    anchors.verticalCenter: parent.verticalCenter
                    code: row.code
                    color: row.current ? Theme.accentText : Theme.secondaryText
                }

                Text {
                    anchors.left: rowFlag.right
                    anchors.leftMargin: 8
                    anchors.right: parent.right
                    anchors.rightMargin: 12
                    anchors.verticalCenter: parent.verticalCenter
                    text: row.name
                    textFormat: Text.PlainText
                    elide: Text.ElideRight
                    color: row.current ? Theme.accentText : Theme.text
                    font.pixelSize: Theme.textSize
                }

                MouseArea {
                    id: area

                    anchors.fill: parent
                    hoverEnabled: true
                    onClicked: field.take(row.index)
                }
            }
            // qmllint enable unqualified

            ScrollMark {
                flickable: list
            }
        }

        Text {
            anchors.centerIn: list
            width: parent.width - 40
            visible: list.count === 0
            horizontalAlignment: Text.AlignHCenter
            text: qsTr("No country begins like that.")
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.secondaryText
            font.pixelSize: Theme.textSize
        }
    }
}
