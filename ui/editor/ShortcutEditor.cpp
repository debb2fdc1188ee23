// SPDX-License-Identifier: Apache-2.0
#include "ui/editor/ShortcutEditor.h"

namespace skipnest::ui {

ShortcutEditor::ShortcutEditor(app::AppDelegate& agent, QObject* parent)
    : QObject(parent), agent_(agent) {}

} // namespace skipnest::ui
