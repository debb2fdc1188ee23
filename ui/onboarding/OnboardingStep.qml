// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// The frame of an onboarding step: what it is about, and the content below.
FocusScope {
    id: step

    property string title
    property string lead
    // The content takes the keyboard when the step opens; else the button that goes on does.
    property bool wantsFocus: false
    default property alias content: body.data

    Accessible.role: Accessible.Pane
    Accessible.name: step.title

    Text {
        id: heading

        objectName: "title"
        anchors.left: parent.left
        anchors.right: parent.right
        text: step.title
        textFormat: Text.PlainText
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        color: Theme.text
        font.pixelSize: 26
        font.bold: true

        Accessible.role: Accessible.Heading
        Accessible.name: step.title
    }

    Text {
        id: lead

        anchors.top: heading.bottom
        anchors.topMargin: Theme.spacing
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(parent.width, 540)
        visible: step.lead !== ""
        text: step.lead
        textFormat: Text.PlainText
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        color: Theme.secondaryText
        font.pixelSize: Theme.textSize + 1
        lineHeight: 1.15

        Accessible.role: Accessible.StaticText
        Accessible.name: step.lead
    }

    Item {
        id: body

        anchors.top: lead.bottom
        anchors.topMargin: 22
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.margin
    }
}
