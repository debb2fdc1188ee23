// SPDX-License-Identifier: Apache-2.0
#include "ui/onboarding/OnboardingModel.h"

namespace skipnest::ui {

OnboardingModel::OnboardingModel(app::AppDelegate& agent, QObject* parent)
    : QObject(parent), agent_(agent) {}

} // namespace skipnest::ui
