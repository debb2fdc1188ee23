// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/AppInfo.h"
#include "platform/Diagnostics.h"
#include "platform/Scheduler.h"
#include "platform/WebService.h"
#include "platform/Workspace.h"

#include <QByteArray>
#include <QObject>
#include <QUrl>

#include <memory>
#include <optional>

namespace skipnest::services {

struct Release {
    QString version;
    QString build;
    QString url;
    QString notes;

    bool operator==(const Release&) const = default;
};

// Where a release may be offered from. A service on this machine may point at pages on it.
enum class ReleasePages { httpsOnly, httpsOrThisMachine };

// {"version","build","url","notes"}, all texts; further members are not looked at. Fails where one
// is missing, where a version or build is no dotted numbers, and where the url is not https or
// carries a user name.
[[nodiscard]] platform::Result<Release> decodeRelease(const QByteArray& bytes,
                                                      ReleasePages pages = ReleasePages::httpsOnly);
// Versions are compared number by number ("1.10" is newer than "1.9", "1.2.0" is "1.2"), equal ones
// by build. Never where one of them is no dotted numbers.
[[nodiscard]] bool isNewer(const Release& release, const QString& version, const QString& build);

// Asks the web service for the newest release: at start, and once a day while the program runs.
class UpdateChecker final : public QObject {
    Q_OBJECT
public:
    enum class Outcome { newer, newest, failed };

    UpdateChecker(platform::WebService& web, platform::Workspace& workspace,
                  platform::Scheduler& scheduler, platform::Diagnostics& diagnostics,
                  const platform::AppInfo& app);
    ~UpdateChecker() override;

    // Begins to ask; nothing where there is no service.
    void start();
    // Does nothing while a check is on its way. A check that fails leaves what was found.
    void check();
    // The newer release that was found, until a check finds none.
    [[nodiscard]] const std::optional<Release>& available() const { return available_; }
    // Opens the release's address in the browser. Nothing is downloaded or run.
    void open();

Q_SIGNALS:
    void availableChanged();
    // A check has ended.
    void checked(skipnest::services::UpdateChecker::Outcome outcome);

private:
    void offer(std::optional<Release> release);
    void take(const platform::Result<platform::HttpReply>& reply);

    platform::WebService& web_;
    platform::Workspace& workspace_;
    platform::Scheduler& scheduler_;
    platform::Diagnostics& diagnostics_;
    QString version_;
    QString build_;
    std::optional<Release> available_;
    bool isChecking_ = false;
    platform::Timer timer_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::services
