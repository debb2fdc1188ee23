// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Skipnest

FocusScope {
    id: root

    required property OnboardingModel onboarding
}
