// SPDX-License-Identifier: Apache-2.0
import QtQuick

// One of the drawings in symbols/, in one colour.
Image {
    id: symbol

    required property string name
    required property color color
    property int size: 18

    width: size
    height: size
    sourceSize: Qt.size(size, size)
    source: name === "" ? "" : "image://symbols/" + name + "/" + color.toString().slice(-6)
}
