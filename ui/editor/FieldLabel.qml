// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// What a field below is for. The field itself tells assistive programs.
Text {
    textFormat: Text.PlainText
    color: Theme.secondaryText
    font.pixelSize: Theme.smallSize
    font.bold: true

    Accessible.ignored: true
}
