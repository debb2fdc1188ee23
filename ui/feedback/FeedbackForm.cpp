// SPDX-License-Identifier: Apache-2.0
#include "ui/feedback/FeedbackForm.h"

namespace skipnest::ui {

FeedbackForm::FeedbackForm(app::AppDelegate& agent, QObject* parent)
    : QObject(parent), agent_(agent) {}

} // namespace skipnest::ui
