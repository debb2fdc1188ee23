// SPDX-License-Identifier: Apache-2.0
#include "ui/transfer/ImportModel.h"

namespace skipnest::ui {

ImportModel::ImportModel(app::AppDelegate& agent, QObject* parent)
    : QObject(parent), agent_(agent) {}

} // namespace skipnest::ui
