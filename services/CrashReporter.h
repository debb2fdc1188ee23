// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Diagnostics.h"
#include "platform/Files.h"
#include "services/CrashRecord.h"
#include "services/InstallIdentity.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace skipnest::services {

// Sends the record of a crash to the makers, if the person wants that. The first one ever waits
// until they have seen it. A record is removed once the service has taken it, and stays for the
// next start where it has not: a run that ends between the two leads to a second report rather than
// to none. Without a web service nothing happens at all.
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
    // with `agreed` and a first report seen before, sends it, once a run. A record that does not
    // decode is moved to NAME.corrupt and never sent.
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
    [[nodiscard]] std::optional<CrashRecord> read();
    void setWaiting(std::optional<CrashRecord> record);
    [[nodiscard]] platform::FormFields fields(const CrashRecord& record) const;
    void send(const CrashRecord& record);
    void take(const platform::Result<platform::HttpReply>& reply);
    void removeRecord();

    platform::WebService& web_;
    platform::Files& files_;
    platform::UserDefaults& defaults_;
    const InstallIdentity& identity_;
    platform::Diagnostics& diagnostics_;
    QString file_;
    QByteArray bytes_; // of the file when it was read
    std::optional<CrashRecord> waiting_;
    bool isSent_ = false; // or on its way
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::services
