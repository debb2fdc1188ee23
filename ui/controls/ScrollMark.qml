// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// Shows which part of a Flickable is in view, and can be dragged.
Rectangle {
    id: mark

    required property Flickable flickable

    parent: flickable
    anchors.right: parent.right
    anchors.rightMargin: 2
    visible: flickable.contentHeight > flickable.height
    y: Math.max(0, flickable.visibleArea.yPosition * flickable.height)
    width: 6
    height: Math.max(24, flickable.visibleArea.heightRatio * flickable.height)
    radius: 3
    color: Theme.secondaryText
    opacity: area.containsMouse || area.pressed ? 0.9 : 0.45

    MouseArea {
        id: area

        anchors.fill: parent
        anchors.margins: -4
        hoverEnabled: true
        property real grabbedAt: 0
        onPressed: mouse => grabbedAt = mouse.y
        onPositionChanged: mouse => {
            if (!pressed)
                return;
            const share = (mouse.y - grabbedAt) / mark.flickable.height;
            const wanted = mark.flickable.contentY + share * mark.flickable.contentHeight;
            mark.flickable.contentY = Math.max(0, Math.min(mark.flickable.contentHeight - mark.flickable.height, wanted));
        }
    }
}
