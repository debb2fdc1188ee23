// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtQuick.Layouts
import Skipnest

// One setting: what it does, its value, its default, and the way back to it.
ColumnLayout {
    id: row

    required property SettingsModel settings
    required property bool isFirst
    required property int index
    required property string name
    required property string control
    required property string title
    required property string description
    required property string defaultText
    required property string note
    required property bool isOn
    required property var options
    required property var symbols
    required property int current
    required property bool canReset
    required property string text
    required property string example

    spacing: 6

    Rectangle {
        Layout.fillWidth: true
        Layout.bottomMargin: 4
        visible: !row.isFirst
        implicitHeight: 1
        color: Theme.border
    }

    RowLayout {
        Layout.fillWidth: true
        spacing: 12

        SettingText {
            title: row.title
            description: row.description
        }

        Loader {
            active: row.control === "switch"
            visible: active
            // qmllint disable unqualified
            sourceComponent: Toggle {
                objectName: row.name
                name: row.title
                checked: row.isOn
                onToggled: checked => row.settings.setOn(row.name, checked)
            }
            // qmllint enable unqualified
        }
    }

    Loader {
        Layout.fillWidth: true
        active: row.control !== "switch"
        visible: active
        // qmllint disable unqualified
        sourceComponent: {
            switch (row.control) {
            case "bar":
                return bar;
            case "pictures":
                return pictures;
            case "dropDown":
                return dropDown;
            case "combo":
                return combo;
            case "text":
                return line;
            default:
                return words;
            }
        }
        // qmllint enable unqualified
    }

    Row {
        Layout.fillWidth: true
        visible: row.defaultText !== ""
        spacing: 12

        Text {
            objectName: row.name + "Default"
            width: Math.min(implicitWidth, row.width - (link.visible ? link.implicitWidth + 12 : 0))
            text: row.defaultText
            textFormat: Text.PlainText
            elide: Text.ElideRight
            color: Theme.secondaryText
            font.pixelSize: Theme.smallSize
        }

        LinkButton {
            id: link

            objectName: row.name + "Reset"
            visible: row.canReset
            text: qsTr("Use default")
            name: qsTr("%1: use the default").arg(row.title)
            onPressed: row.settings.reset(row.name)
        }
    }

    MessageLine {
        objectName: row.name + "Note"
        Layout.fillWidth: true
        kind: "warning"
        text: row.note
    }

    // qmllint disable unqualified
    Component {
        id: bar

        ChoiceBar {
            objectName: row.name
            name: row.title
            options: row.options
            current: row.current
            onChosen: index => row.settings.choose(row.name, index)
        }
    }

    Component {
        id: pictures

        PictureBar {
            objectName: row.name
            name: row.title
            options: row.options
            symbols: row.symbols
            current: row.current
            onChosen: index => row.settings.choose(row.name, index)
        }
    }

    Component {
        id: dropDown

        DropDown {
            objectName: row.name
            name: row.title
            options: row.options
            current: row.current
            onChosen: index => row.settings.choose(row.name, index)
        }
    }

    Component {
        id: line

        TextBox {
            id: lineBox

            function keep() {
                if (lineBox.text !== row.text)
                    row.settings.setText(row.name, lineBox.text);
            }

            objectName: row.name
            name: row.title
            placeholder: row.example
            maximumLength: 2000
            text: row.text
            onAccepted: lineBox.keep()
            onActiveFocusChanged: {
                if (!lineBox.activeFocus)
                    lineBox.keep();
            }
        }
    }

    Component {
        id: combo

        ComboField {
            objectName: row.name
            name: row.title
            recorder: row.settings.recorder(row.name)
            clearable: false
        }
    }

    Component {
        id: words

        VocabularyEditor {
            readonly property bool isAliases: row.control === "aliases"

            objectName: row.name
            name: row.title
            rows: isAliases ? row.settings.aliases : row.settings.terms
            hasCanonical: isAliases
            onAdded: (heard, canonical) => {
                if (isAliases)
                    row.settings.addAlias(heard, canonical);
                else
                    row.settings.addTerm(heard);
            }
            onRemoved: heard => {
                if (isAliases)
                    row.settings.removeAlias(heard);
                else
                    row.settings.removeTerm(heard);
            }
        }
    }
    // qmllint enable unqualified
}
