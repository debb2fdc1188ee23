// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ComboText.h"
#include "model/ShortcutItem.h"
#include "platform/sim/SimHotkeys.h"

namespace skipnest::test {

inline model::KeyCombo combo(const char* text) {
    return model::parseCombo(QString::fromUtf8(text)).value();
}

inline sim::HotkeyCombo pressed(const char* text) {
    const model::KeyCombo parsed = combo(text);
    return {parsed.keyCode, parsed.modifiers.carbonModifiers()};
}

inline model::ShortcutItem shortcut(const char* name, const char* path, const char* key = nullptr,
                                    const char* hideKey = nullptr) {
    model::ShortcutItem item;
    item.name = QString::fromUtf8(name);
    item.targetPath = QString::fromUtf8(path);
    item.targetType = item.targetPath.endsWith(u".app")
                          ? model::ShortcutItem::TargetType::application
                          : model::ShortcutItem::TargetType::file;
    if (key != nullptr)
        item.keyCombo = combo(key);
    if (hideKey != nullptr)
        item.hideKeyCombo = combo(hideKey);
    return item;
}

} // namespace skipnest::test
