// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Diagnostics.h"
#include "services/InstallIdentity.h"

#include <QStringList>

#include <functional>
#include <memory>

namespace skipnest::services {

// Anonymous counts of installations, of how far people come, and of how well voice works. Nothing
// is sent before the person agreed ("sk.pings" is true), and nothing carries a text of theirs.
//
// An install ping is the common fields and "r"; a stage adds "stage" before it. "r" is "new" where
// this installation has never reported another version, "update" where it has: the service tells
// new installations from those that stay. A ping counts as sent when the service answered with
// success; one that failed is tried again by the next run of the program, not by this one.
//
// Kept in the user defaults: "sk.pings.reached", the names of the stages, in order; and
// "sk.pings.sent", {"first": version of the first install ping, "version": of the last one,
// "stages": names}.
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
    [[nodiscard]] bool maySend() const { return isAgreed() && web_.isConfigured(); }
    [[nodiscard]] QString reporter() const;
    void sendWhatWaits();
    void sendInstall();
    void sendStage(const QString& stage);
    // `taken` runs when the service took it.
    void send(const QString& path, const platform::FormFields& fields,
              std::function<void()> taken = {});

    platform::WebService& web_;
    platform::UserDefaults& defaults_;
    const InstallIdentity& identity_;
    platform::Diagnostics& diagnostics_;
    QString language_; // ISO 639, empty where unknown
    bool hasTriedInstall_ = false;
    QStringList triedStages_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::services
