// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Diagnostics.h"
#include "platform/Files.h"
#include "services/InstallIdentity.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace skipnest::services {

// How an earlier run ended; see platform::CrashCapture.
struct CrashRecord {
    QString type;
    QString name;
    QString reason;
    QString stack;

    bool operator==(const CrashRecord&) const = default;
};

// Fails where the bytes are no such record, or carry what a record of ours never does.
[[nodiscard]] platform::Result<CrashRecord> decodeCrashRecord(const QByteArray& bytes);

// Sends the record of a crash to the makers, if the person wants that. The first one ever waits
// until they have seen it.
class CrashReporter final : public QObject {
    Q_OBJECT
public:
    CrashReporter(platform::WebService& web, platform::Files& files,
                  platform::UserDefaults& defaults, const InstallIdentity& identity,
                  platform::Diagnostics& diagnostics, const platform::AppInfo& app);
    ~CrashReporter() override;

    // "pending-crash.json" in the support folder.
    [[nodiscard]] const QString& recordFile() const { return file_; }

    // At the start and whenever the setting changes: reads the record left by an earlier run and,
    // with `agreed` and a first report seen before, sends it. A record that does not decode is
    // moved aside.
    void start(bool agreed);
    // What the person has to see before it is sent: the first record ever, while agreed.
    [[nodiscard]] const std::optional<CrashRecord>& waiting() const { return waiting_; }
    // The fields as they would be sent, a line each, for the person's eyes.
    [[nodiscard]] QString preview() const;
    // The person's answer. Sending means that later ones are sent without asking.
    void sendWaiting();
    void discardWaiting();

Q_SIGNALS:
    void waitingChanged();

private:
    void send(const CrashRecord& record);

    platform::WebService& web_;
    platform::Files& files_;
    platform::UserDefaults& defaults_;
    const InstallIdentity& identity_;
    platform::Diagnostics& diagnostics_;
    QString file_;
    std::optional<CrashRecord> waiting_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::services
