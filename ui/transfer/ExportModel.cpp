// SPDX-License-Identifier: Apache-2.0
#include "ui/transfer/ExportModel.h"

namespace skipnest::ui {

ExportModel::ExportModel(app::AppDelegate& agent, QObject* parent)
    : QObject(parent), agent_(agent) {}

} // namespace skipnest::ui
