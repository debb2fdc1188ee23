// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

// A column of content that scrolls, with a bar that shows where one is. Whatever gets the keyboard
// is scrolled into view.
Flickable {
    id: flick

    property int sideMargin: Theme.margin
    default property alias content: column.data

    contentWidth: width
    contentHeight: column.implicitHeight + 2 * Theme.margin
    boundsBehavior: Flickable.StopAtBounds
    clip: true

    function reveal(item) {
        if (!item)
            return;
        const top = item.mapToItem(flick.contentItem, 0, 0).y;
        const bottom = top + item.height;
        if (top - 8 < flick.contentY)
            flick.contentY = Math.max(0, top - 8);
        else if (bottom + 8 > flick.contentY + flick.height)
            flick.contentY = Math.min(flick.contentHeight - flick.height, bottom + 8 - flick.height);
    }

    function holds(item) {
        for (let each = item; each; each = each.parent)
            if (each === column)
                return true;
        return false;
    }

    Connections {
        target: flick.Window.window

        function onActiveFocusItemChanged() {
            const item = flick.Window.activeFocusItem;
            if (flick.holds(item))
                flick.reveal(item);
        }
    }

    Column {
        id: column

        x: flick.sideMargin
        y: Theme.margin
        width: flick.width - 2 * flick.sideMargin
        spacing: Theme.margin
    }

    ScrollMark {
        flickable: flick
    }
}
