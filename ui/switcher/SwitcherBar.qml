// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// The switcher's bar: the windows of an application, the tabs of one of them, or what a query
// finds. It has no keyboard of its own; what is chosen comes from the switcher.
Rectangle {
    id: root

    required property SwitcherBarModel bar
    readonly property int margin: 18
    readonly property string counted: {
        if (bar.level === "search")
            return qsTr("%n matches", "", bar.resultCount);
        const windows = qsTr("%n windows", "", bar.windowCount);
        return bar.browser ? qsTr("%1, %2").arg(windows).arg(qsTr("%n tabs", "", bar.tabCount)) : windows;
    }

    color: Theme.window
    radius: 14
    border.width: 1
    border.color: Theme.border

    Accessible.role: Accessible.Pane
    Accessible.name: bar.appName

    TargetIcon {
        id: icon

        x: root.margin
        anchors.verticalCenter: field.verticalCenter
        path: root.bar.appIcon
        title: root.bar.appName
        size: 28
    }

    Text {
        id: appName

        anchors.left: icon.right
        anchors.leftMargin: 10
        anchors.verticalCenter: field.verticalCenter
        width: Math.min(implicitWidth, (headline.visible ? 0.5 : 1) * (field.x - x - 16))
        text: root.bar.appName
        textFormat: Text.PlainText
        maximumLineCount: 1
        elide: Text.ElideRight
        color: Theme.text
        font.pixelSize: Theme.titleSize
        font.bold: true

        Accessible.role: Accessible.Heading
        Accessible.name: root.bar.appName
    }

    Symbol {
        id: arrow

        visible: headline.visible
        anchors.left: appName.right
        anchors.leftMargin: 6
        anchors.verticalCenter: field.verticalCenter
        name: "next"
        color: Theme.secondaryText
        size: 16
    }

    Text {
        id: headline

        objectName: "headline"
        visible: text !== ""
        anchors.left: arrow.right
        anchors.leftMargin: 6
        anchors.right: field.left
        anchors.rightMargin: 16
        anchors.verticalCenter: field.verticalCenter
        horizontalAlignment: Text.AlignLeft
        text: root.bar.headline
        textFormat: Text.PlainText
        maximumLineCount: 1
        elide: Text.ElideMiddle
        color: Theme.secondaryText
        font.pixelSize: Theme.textSize
    }

    QueryField {
        id: field

        anchors.right: parent.right
        anchors.rightMargin: root.margin
        y: root.margin
        width: Math.min(320, root.width * 0.44)
        height: 36
        query: root.bar.query
        prompt: root.bar.browser ? qsTr("Type to filter every tab…") : qsTr("Type to filter windows…")
    }

    Item {
        id: content

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: field.bottom
        anchors.bottom: hints.top
        anchors.margins: root.margin
        anchors.topMargin: 14
        anchors.bottomMargin: 14

        WindowCards {
            objectName: "cards"
            anchors.centerIn: parent
            visible: root.bar.level === "windows"
            bar: root.bar
        }

        FlowChips {
            objectName: "chips"
            anchors.centerIn: parent
            visible: root.bar.level === "tabs"
            bar: root.bar
        }

        FoundRows {
            objectName: "results"
            anchors.fill: parent
            visible: root.bar.level === "search" && !root.bar.nothingFound
            bar: root.bar
        }

        Text {
            objectName: "nothingFound"
            anchors.centerIn: parent
            width: Math.min(implicitWidth, parent.width)
            visible: root.bar.nothingFound
            text: root.bar.browser ? qsTr("No tab matches “%1”").arg(root.bar.query) : qsTr("No window matches “%1”").arg(root.bar.query)
            textFormat: Text.PlainText
            maximumLineCount: 1
            elide: Text.ElideMiddle
            color: Theme.secondaryText
            font.pixelSize: Theme.textSize

            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }

    BarHints {
        id: hints

        anchors.left: parent.left
        anchors.right: counts.left
        anchors.bottom: parent.bottom
        anchors.leftMargin: root.margin
        anchors.bottomMargin: root.margin
        height: 22
        bar: root.bar
    }

    Text {
        id: counts

        anchors.right: parent.right
        anchors.rightMargin: root.margin
        anchors.verticalCenter: hints.verticalCenter
        text: root.counted
        textFormat: Text.PlainText
        color: Theme.secondaryText
        font.pixelSize: Theme.smallSize
    }
}
