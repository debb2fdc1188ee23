// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// What the program does, and how it should look.
OnboardingStep {
    id: step

    required property OnboardingModel onboarding

    title: qsTr("Welcome to Skipnest")
    lead: qsTr("One key takes you to an application, a file or a folder.")

    Column {
        id: points

        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(parent.width, 500)
        spacing: 14

        Repeater {
            model: [
                {
                    symbol: "key",
                    text: qsTr("Give a key to what you open most often.")
                },
                {
                    symbol: "up",
                    text: qsTr("Press it anywhere: the target comes to the front, and is opened first if it has to be.")
                },
                {
                    symbol: "down",
                    text: qsTr("Press it together with Shift, and the target is hidden again.")
                }
            ]

            Row {
                id: point

                required property var modelData

                spacing: 14

                Rectangle {
                    width: 34
                    height: 34
                    radius: 17
                    color: Theme.surface
                    border.width: 1
                    border.color: Theme.border

                    Symbol {
                        anchors.centerIn: parent
                        name: point.modelData.symbol
                        color: Theme.accent
                    }
                }

                Text {
                    width: points.width - 48 // qmllint disable unqualified
                    anchors.verticalCenter: parent.verticalCenter
                    text: point.modelData.text
                    textFormat: Text.PlainText
                    wrapMode: Text.Wrap
                    color: Theme.text
                    font.pixelSize: Theme.textSize + 1

                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                }
            }
        }
    }

    Text {
        id: question

        anchors.bottom: themes.top
        anchors.bottomMargin: 12
        anchors.horizontalCenter: parent.horizontalCenter
        text: qsTr("How should it look?")
        textFormat: Text.PlainText
        color: Theme.secondaryText
        font.pixelSize: Theme.textSize
    }

    FocusScope {
        id: themes

        objectName: "themes"
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 8
        anchors.horizontalCenter: parent.horizontalCenter
        width: tiles.width
        height: tiles.height
        activeFocusOnTab: true

        Accessible.role: Accessible.Grouping
        Accessible.name: question.text

        Keys.onLeftPressed: step.onboarding.chooseTheme(step.onboarding.theme - 1)
        Keys.onRightPressed: step.onboarding.chooseTheme(step.onboarding.theme + 1)

        Row {
            id: tiles

            spacing: 18

            Repeater {
                model: [qsTr("Light"), qsTr("Dark"), qsTr("Skipnest")]

                // qmllint disable unqualified
                ThemeTile {
                    required property int index
                    required property string modelData

                    objectName: "theme" + index
                    colors: step.onboarding.palettes[index]
                    name: modelData
                    chosen: index === step.onboarding.theme
                    focused: chosen && themes.activeFocus
                    onPicked: {
                        themes.forceActiveFocus();
                        step.onboarding.chooseTheme(index);
                    }
                }
                // qmllint enable unqualified
            }
        }
    }
}
