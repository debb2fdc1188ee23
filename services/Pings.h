// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Diagnostics.h"
#include "services/InstallIdentity.h"

namespace skipnest::services {

// Anonymous counts of installations, of how far people come, and of how well voice works. Nothing
// is sent before the person agreed ("sk.pings" is true), and nothing carries a text of theirs.
class Pings {
public:
    enum class Stage { firstStart, onboarded, firstJump };
    enum class VoiceOutcome { hit, miss, pick, fix };

    Pings(platform::WebService& web, platform::UserDefaults& defaults,
          const InstallIdentity& identity, platform::Diagnostics& diagnostics, QString language);

    [[nodiscard]] bool isAgreed() const;
    // The person's answer. Agreeing sends what was reached before and not sent yet.
    void setAgreed(bool agreed);

    // A start of this version: its install ping, once a version, when agreed.
    void started();
    // A stage was reached: reported once ever. Reached before agreeing, it is reported then.
    void reached(Stage stage);
    void voice(VoiceOutcome outcome);

private:
    void sendInstall();
    void sendStages();

    platform::WebService& web_;
    platform::UserDefaults& defaults_;
    const InstallIdentity& identity_;
    platform::Diagnostics& diagnostics_;
    QString language_; // ISO 639, empty where unknown
};

} // namespace skipnest::services
