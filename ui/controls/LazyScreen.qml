// SPDX-License-Identifier: Apache-2.0
import QtQuick

// A screen that is made when it is first shown, and takes the focus whenever it is shown.
Loader {
    id: loader

    required property bool shown

    active: false
    visible: shown
    focus: shown

    onShownChanged: {
        if (loader.shown) {
            loader.active = true;
            loader.forceActiveFocus();
        }
    }

    Component.onCompleted: {
        if (loader.shown)
            loader.active = true;
    }
}
