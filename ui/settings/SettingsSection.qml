// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtQuick.Layouts
import Skipnest

// The settings of one section; gone while the search finds none of them.
Card {
    id: card

    required property SettingRows section
    required property SettingsModel settings

    visible: section.count > 0
    title: section.title

    SettingText {
        objectName: card.section.note === "" ? "" : "sectionNote"
        visible: card.section.note !== ""
        description: card.section.note
    }

    Repeater {
        model: card.section

        // qmllint disable unqualified
        SettingRow {
            Layout.fillWidth: true
            settings: card.settings
            isFirst: index === 0 && card.section.note === ""
        }
        // qmllint enable unqualified
    }
}
