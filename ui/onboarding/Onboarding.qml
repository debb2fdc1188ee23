// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// The onboarding window: one step at a time, the way through at its foot. Return goes on and Escape
// goes back wherever the control at hand has no use for them.
FocusScope {
    id: root

    required property OnboardingModel onboarding
    readonly property string step: onboarding.step

    focus: true

    Accessible.role: Accessible.Pane
    Accessible.name: qsTr("Welcome to Skipnest")

    Keys.onEscapePressed: root.onboarding.back()
    Keys.onReturnPressed: root.onboarding.next()
    Keys.onEnterPressed: root.onboarding.next()

    function giveFocus() {
        const content = stage.item as OnboardingStep;
        if (content && content.wantsFocus)
            content.forceActiveFocus();
        else
            nextButton.forceActiveFocus();
    }

    Component.onCompleted: root.giveFocus()

    ProgressMark {
        anchors.horizontalCenter: parent.horizontalCenter
        y: 22
        position: root.onboarding.position
        count: root.onboarding.count
    }

    Loader {
        id: stage

        anchors.fill: parent
        anchors.topMargin: 48
        anchors.bottomMargin: foot.height
        anchors.leftMargin: 40
        anchors.rightMargin: 40
        focus: true
        onLoaded: root.giveFocus()
        sourceComponent: {
            switch (root.step) {
            case "firstShortcut":
                return firstShortcut;
            case "tryIt":
                return tryIt;
            case "gesture":
                return gesture;
            case "done":
                return done;
            default:
                return welcome;
            }
        }
    }

    // qmllint disable unqualified
    Component {
        id: welcome

        WelcomeStep {
            onboarding: root.onboarding
        }
    }

    Component {
        id: firstShortcut

        FirstShortcutStep {
            shortcut: root.onboarding.shortcut
            onTargetChosen: nextButton.forceActiveFocus()
        }
    }

    Component {
        id: tryIt

        TryItStep {
            press: root.onboarding.press
            onOtherKeyWanted: root.onboarding.back()
        }
    }

    Component {
        id: gesture

        GestureStep {
            gesture: root.onboarding.gesture
        }
    }

    Component {
        id: done

        DoneStep {
            onboarding: root.onboarding
        }
    }
    // qmllint enable unqualified

    Item {
        id: foot

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        height: 66

        Rectangle {
            anchors.left: parent.left
            anchors.right: parent.right
            height: 1
            color: Theme.border
        }

        ActionButton {
            objectName: "skip"
            anchors.left: parent.left
            anchors.leftMargin: Theme.margin
            anchors.verticalCenter: parent.verticalCenter
            visible: root.step !== "done"
            text: qsTr("Skip")
            onPressed: root.onboarding.finish()
        }

        Row {
            anchors.right: parent.right
            anchors.rightMargin: Theme.margin
            anchors.verticalCenter: parent.verticalCenter
            spacing: Theme.spacing

            ActionButton {
                objectName: "back"
                visible: root.onboarding.canGoBack
                text: qsTr("Back")
                onPressed: root.onboarding.back()
            }

            ActionButton {
                id: nextButton

                objectName: "next"
                kind: "primary"
                enabled: root.onboarding.canGoOn
                text: root.step === "done" ? qsTr("Finish") : root.onboarding.willSave ? qsTr("Save and go on") : qsTr("Next")
                onPressed: root.onboarding.next()
            }
        }
    }
}
