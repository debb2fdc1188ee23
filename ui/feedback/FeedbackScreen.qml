// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtQuick.Layouts
import Skipnest

ScreenPage {
    id: root

    required property PopoverModel popover
    readonly property FeedbackForm form: popover.feedback

    title: qsTr("Feedback")
    onBack: root.popover.back()

    ScrollPage {
        anchors.fill: parent

        ChoiceBar {
            objectName: "feedbackCategory"
            width: parent.width
            name: qsTr("Kind")
            options: root.form.categories
            current: root.form.category
            onChosen: index => root.form.category = index
        }

        TextPad {
            id: message

            objectName: "feedbackMessage"
            width: parent.width
            implicitHeight: 180
            focus: true
            name: qsTr("Message")
            placeholder: qsTr("What should be better, or what went wrong?")
            readOnly: root.form.isSending
            onTextChanged: root.form.message = message.text
            onAccepted: root.form.send()

            Connections {
                target: root.form

                function onChanged() {
                    if (message.text !== root.form.message)
                        message.text = root.form.message;
                }
            }

            Component.onCompleted: message.text = root.form.message
        }

        Column {
            width: parent.width
            spacing: 6

            TextBox {
                id: email

                objectName: "feedbackEmail"
                width: parent.width
                enabled: !root.form.isSending
                maximumLength: 254
                placeholder: qsTr("E-mail address, if you would like an answer")
                text: root.form.email
                onEdited: root.form.email = email.text
            }

            Text {
                objectName: "feedbackEmailHint"
                width: parent.width
                visible: text !== ""
                text: root.form.emailHint
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: Theme.warning
                font.pixelSize: Theme.smallSize
            }
        }

        MessageLine {
            objectName: "feedbackCannotSend"
            width: parent.width
            text: root.form.hasSender ? "" : qsTr("This build can't send feedback. Copy the text and send it the way you like.")
        }

        MessageLine {
            objectName: "feedbackResult"
            width: parent.width
            kind: root.form.resultKind
            text: root.form.result
        }

        RowLayout {
            width: parent.width
            spacing: Theme.spacing
            layoutDirection: Qt.RightToLeft

            ActionButton {
                objectName: "feedbackSend"
                visible: root.form.hasSender
                enabled: root.form.hasMessage && !root.form.isSending
                kind: "primary"
                text: qsTr("Send")
                onPressed: root.form.send()
            }

            ActionButton {
                objectName: "feedbackCopy"
                enabled: root.form.hasMessage
                kind: root.form.hasSender ? "plain" : "primary"
                symbol: "copy"
                text: qsTr("Copy text")
                onPressed: root.form.copyText()
            }

            Text {
                Layout.fillWidth: true
                visible: !root.form.hasMessage
                text: qsTr("A message is needed.")
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: Theme.secondaryText
                font.pixelSize: Theme.smallSize
            }

            Item {
                Layout.fillWidth: true
                visible: root.form.hasMessage
            }
        }
    }
}
