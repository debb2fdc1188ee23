// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Alerts.h"
#include "platform/Availability.h"
#include "platform/Bookmarks.h"
#include "platform/Diagnostics.h"
#include "platform/Files.h"
#include "platform/InstanceLock.h"
#include "platform/Scheduler.h"
#include "platform/ScriptRunner.h"

#include <memory>

namespace skipnest::macos {

// The ports that nobody has written for macOS yet. They link, they say so, and every operation that
// can fail does, with Failure::Kind::unavailable.

[[nodiscard]] platform::Availability notWritten(const QString& subject);

// An alert nobody can see goes to the log and is answered as if its window had been closed.
class UnavailableAlerts final : public platform::Alerts {
public:
    UnavailableAlerts(platform::Scheduler& scheduler, platform::Diagnostics& diagnostics);
    void show(const platform::Alert& alert, std::function<void(int)> answered) override;

private:
    platform::Scheduler& scheduler_;
    platform::Diagnostics& diagnostics_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

class UnavailableBookmarks final : public platform::Bookmarks {
public:
    [[nodiscard]] platform::Result<QByteArray> create(const QString& path) override;
    [[nodiscard]] platform::Result<QString> resolve(const QByteArray& bookmark) override;
    [[nodiscard]] platform::ScopedAccess startAccessing(const QString& path) override;
};

class UnavailableFiles final : public platform::Files {
public:
    [[nodiscard]] platform::FileKind kind(const QString& path) const override;
    [[nodiscard]] QString followLinks(const QString& path) const override { return path; }
    [[nodiscard]] platform::Result<QByteArray> read(const QString& path,
                                                    std::int64_t limit) override;
    [[nodiscard]] platform::Result<QStringList> list(const QString& folder) override;
    platform::Outcome createFolder(const QString& path) override;
    platform::Outcome write(const QString& path, const QByteArray& bytes) override;
    platform::Outcome flush(const QString& path) override;
    platform::Outcome flushFolder(const QString& path) override;
    platform::Outcome rename(const QString& from, const QString& to) override;
    platform::Outcome remove(const QString& path) override;
};

class UnavailableInstanceLock final : public platform::InstanceLock {
public:
    [[nodiscard]] platform::Result<platform::InstanceToken> enterStart() override;
    [[nodiscard]] platform::Result<platform::InstanceToken> acquire() override;
    [[nodiscard]] std::optional<platform::ProcessIdentifier> holder() const override;
    platform::Outcome endHolder(platform::Termination termination) override;
};

// Knows nobody, so nobody is the same user.
class UnavailablePeerCredentials final : public platform::PeerCredentials {
public:
    [[nodiscard]] bool isSameUser(std::intptr_t socketDescriptor) const override;
};

class UnavailableScriptRunner final : public platform::ScriptRunner {
public:
    [[nodiscard]] platform::Availability availability() const override;
    [[nodiscard]] platform::ScriptAnswer run(const platform::ScriptRequest& request,
                                             platform::Duration budget) override;
};

} // namespace skipnest::macos
