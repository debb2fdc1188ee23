// SPDX-License-Identifier: Apache-2.0
#include "ui/list/ShortcutListScreenModel.h"

namespace skipnest::ui {

ShortcutListScreenModel::ShortcutListScreenModel(app::AppDelegate& agent, QObject* parent)
    : QObject(parent), agent_(agent) {}

} // namespace skipnest::ui
