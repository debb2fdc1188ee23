// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// The key whose double tap will start the voice search, tried on the spot.
OnboardingStep {
    id: step

    required property GesturePractice gesture

    readonly property bool canTry: gesture.reason === ""
    readonly property string key: gesture.triggers[gesture.trigger]
    readonly property bool isOff: gesture.trigger === gesture.triggers.length - 1
    readonly property bool works: gesture.answer === "doubleTap" && !isOff

    wantsFocus: canTry
    title: qsTr("The voice gesture")
    lead: qsTr("A key tapped twice, quickly, will start the voice search. Voice arrives with a later version; the gesture can be chosen now.")

    function feedback() {
        if (step.isOff)
            return qsTr("No gesture: the voice search will have a key of its own.");
        switch (step.gesture.answer) {
        case "firstTap":
            return qsTr("One… and once more.");
        case "doubleTap":
            return qsTr("That is it.");
        case "heldTooLong":
            return qsTr("A little shorter: let the key go at once.");
        case "tooFarApart":
            return qsTr("Almost. The second tap has to come sooner.");
        case "otherSide":
            return qsTr("Tap the same %1 key twice, left or right.").arg(step.key);
        case "disturbed":
            return qsTr("Another key came in between. Try again with %1 alone.").arg(step.key);
        default:
            return qsTr("Try it: tap %1 twice.").arg(step.key);
        }
    }

    Column {
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(parent.width, 500)
        spacing: 20

        ChoiceBar {
            objectName: "triggers"
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(parent.width, Math.max(implicitWidth, 420))
            focus: true
            visible: step.canTry
            name: qsTr("Key for the voice gesture")
            options: step.gesture.triggers
            current: step.gesture.trigger
            onChosen: index => step.gesture.choose(index)
        }

        MessageLine {
            objectName: "advice"
            width: parent.width
            visible: step.canTry && text !== ""
            text: step.gesture.advice
        }

        Rectangle {
            width: parent.width
            height: 180
            visible: step.canTry
            radius: Theme.radius
            color: Theme.surface
            border.width: step.works ? 2 : 1
            border.color: step.works ? Theme.success : Theme.border

            Column {
                anchors.centerIn: parent
                width: parent.width - 2 * Theme.margin
                spacing: 14

                Symbol {
                    anchors.horizontalCenter: parent.horizontalCenter
                    name: step.works ? "check" : "voice"
                    color: step.works ? Theme.success : step.isOff ? Theme.secondaryText : Theme.accent
                    size: 44
                }

                Text {
                    objectName: "feedback"
                    width: parent.width
                    text: step.feedback()
                    textFormat: Text.PlainText
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.Wrap
                    color: Theme.text
                    font.pixelSize: Theme.textSize + 2

                    Accessible.role: Accessible.AlertMessage
                    Accessible.name: text
                }
            }
        }

        MessageLine {
            objectName: "unavailable"
            width: parent.width
            kind: "warning"
            text: step.canTry ? "" : qsTr("The gesture cannot be used here. %1 %2").arg(step.gesture.reason).arg(step.gesture.remedy).trim()
        }
    }
}
