// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtQuick.Layouts
import Skipnest

ScreenPage {
    id: root

    required property PopoverModel popover

    title: qsTr("Settings")
    onBack: root.popover.back()
}
