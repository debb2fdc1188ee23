// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtQuick.Layouts
import Skipnest

ScreenPage {
    id: root

    required property PopoverModel popover

    title: qsTr("Skipnest")
    onBack: root.popover.back()
}
