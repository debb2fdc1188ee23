// SPDX-License-Identifier: Apache-2.0
#include "Samples.h"

namespace skipnest::model::test {

QByteArray fullDocument() {
    return R"({
    "version": 1,
    "futureSetting": {"deep": [1, 2.5, null, "ä😀"]},
    "launchAtLogin": true,
    "menuBarIconName": "star",
    "shortcuts": [
        {
            "id": "6f9619ff-8b86-d011-b42d-00c04fc964ff",
            "name": "Größe 😀 \"quoted\"",
            "targetPath": "/Users/me/Größe",
            "targetType": "folder",
            "bookmarkData": "Ym9vaw==",
            "keyCombo": {"keyCode": 38, "modifiers": 6, "side": "left"},
            "hideKeyCombo": {"keyCode": 65535, "modifiers": 4294967295},
            "sortOrder": -9223372036854775808,
            "createdAt": "2026-07-24T09:30:00.125Z",
            "colour": "#123456"
        },
        {
            "id": "00000000-0000-0000-0000-0000000000AB",
            "name": "",
            "targetPath": "/Applications/Notes.app",
            "targetType": "application",
            "sortOrder": 9223372036854775807,
            "createdAt": "2026-07-24T11:30:00+02:00"
        }
    ],
    "shiftToHide": false, "hideModifierRaw": 2, "windowCycling": true,
    "nextWindowCombo": {"keyCode": 1, "modifiers": 1, "newer": [true]},
    "prevWindowCombo": {"keyCode": 2, "modifiers": 2},
    "themeRaw": "sepia", "didOnboard": true, "seenOnboardingVersion": 9007199254740993,
    "crashReports": false, "preciseWindowSwitching": true, "windowSwitcher": false,
    "quickCapture": true, "browserTabSwitching": false, "voiceSearch": false,
    "voiceCombo": {"keyCode": 3, "modifiers": 3}, "voiceLanguage": "de-DE",
    "vocabularyTerms": ["Skipnest", ""],
    "vocabularyAliases": [{"heard": "Cloud", "canonical": "Claude", "weight": 3}],
    "voiceCleanup": true, "voiceTrigger": "rightCommand"
})";
}

QByteArray smallestDocument() {
    return R"({"version":1,"shortcuts":[],"launchAtLogin":false,"menuBarIconName":"skipnest"})";
}

platform::AppInfo appInfo() {
    platform::AppInfo app;
    app.supportFolder = QStringLiteral("/home/me/Skipnest");
    app.liteConfig = QStringLiteral("/home/me/Lite/config.json");
    app.installedApplications = {QStringLiteral("/Applications")};
    app.downloadsFolder = QStringLiteral("/home/me/Downloads");
    app.desktopFolder = QStringLiteral("/home/me/Schreibtisch");
    app.documentsFolder = QStringLiteral("/home/me/Documents");
    return app;
}

} // namespace skipnest::model::test
