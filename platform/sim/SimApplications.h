// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Files.h"
#include "platform/Workspace.h"
#include "platform/sim/Journal.h"

#include <QRectF>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace skipnest::sim {

struct SimWindow {
    QString title;
    bool minimized = false;
    std::optional<QString> subrole = QStringLiteral("AXStandardWindow"); // none: unreadable
    std::optional<QRectF> frame = {};                                    // none: unreadable
    // Given when the application is installed; a window of the same title keeps it.
    std::uint64_t id = 0;

    bool operator==(const SimWindow&) const = default;
};

struct SimMenuItem {
    QString title;
    std::optional<QString> mark = {};

    bool operator==(const SimMenuItem&) const = default;
};

enum class Running { no, yes };

// What the stage says of one application. Its name is its identity: installing another of the same
// name replaces it.
struct SimApp {
    QString name = {};
    QString bundleIdentifier = {};
    QString path = {}; // exists as long as it is installed there
    // -1: the next free one. A later run of the same application always gets a new one.
    platform::ProcessIdentifier pid = {};
    Running running = Running::yes;
    std::vector<SimWindow> windows = {};
    std::optional<std::size_t> focused = 0;          // of `windows`; none of them otherwise
    std::optional<std::size_t> main = {};            // the focused one, or the first, if not given
    std::optional<std::uint32_t> menuBar = {};       // how many menus it has; none: no menu bar
    std::vector<SimMenuItem> windowMenu = {};        // of the last menu but one
    std::map<QString, int> accessibilityErrors = {}; // by action or attribute
};

// The applications of the simulated desktop: which are installed, which run, in which order they
// were in front, which of their windows are minimised.
//
// Requests of the program are noted in the journal at once and take effect with the next posted
// work, as on a real desktop, where nothing has happened yet when the call returns. What the person
// does (bringToFront, quit, ...) happens at once; observers hear of both by posted work.
//
// The program itself is an agent without windows: activating it takes the keyboard focus and tells
// the observers, but puts nothing in front, so the application in front stays the same.
class SimApplications final : public platform::Workspace, public platform::ApplicationControl {
public:
    SimApplications(platform::Scheduler& scheduler, Journal& journal, platform::Files& files,
                    platform::RunningApplication self);
    ~SimApplications() override;
    SimApplications(const SimApplications&) = delete;
    SimApplications& operator=(const SimApplications&) = delete;

    // A running application whose new description says that it is not running quits. One that goes
    // on keeps its place in the activation order and its pid, unless the description has another.
    void install(const SimApp& app);
    // Brings a running application, by name, to the front and shows it if it was hidden.
    [[nodiscard]] platform::Outcome bringToFront(const QString& name);
    [[nodiscard]] platform::Outcome quit(const QString& name);
    // From now on hiding it, or quitting it politely, is accepted and has no effect.
    [[nodiscard]] platform::Outcome ignoreHide(const QString& name);
    [[nodiscard]] platform::Outcome ignoreQuit(const QString& name);
    // From now on it comes to the front only when activated past the other applications, as under a
    // window manager that keeps the focus where it is.
    [[nodiscard]] platform::Outcome withholdFocus(const QString& name);
    // The application, by name, that opens this path; it need not be installed yet.
    void setDefaultApplication(const QString& path, const QString& name);
    // The system refuses to open what is at this path.
    void refuseOpen(const QString& path, const platform::Failure& failure);

    // The application as it stands: `pid` while it runs, its windows as they are.
    [[nodiscard]] const SimApp* find(const QString& name) const;
    [[nodiscard]] const SimApp* findRunning(platform::ProcessIdentifier pid) const;
    // For the parts of the desktop through which the program changes it.
    [[nodiscard]] SimApp* findRunning(platform::ProcessIdentifier pid);
    // Empty while nothing is in front.
    [[nodiscard]] QString frontName() const;
    // Names of the running applications, the one in front first, hidden ones in their places.
    [[nodiscard]] std::vector<std::string> activationOrder() const;
    [[nodiscard]] bool isHidden(const QString& name) const;
    // Minimises the first open window, or brings back the last minimised one. False where the
    // application with this identifier has windows, but none in that state.
    bool minimizeNext(const QString& bundleIdentifier);
    bool restorePrevious(const QString& bundleIdentifier);

    [[nodiscard]] platform::Availability availability() const override { return {}; }
    [[nodiscard]] bool isApplication(const QString& path) const override;
    [[nodiscard]] QString displayName(const QString& path) const override;
    [[nodiscard]] QString bundleIdentifier(const QString& path) const override;
    [[nodiscard]] std::optional<QString> defaultApplication(const QString& path) const override;
    [[nodiscard]] std::vector<platform::RunningApplication> runningApplications() const override;
    [[nodiscard]] std::optional<platform::RunningApplication> frontmostApplication() const override;
    void openApplication(const QString& path, OpenCompletion completion) override;
    void openFile(const QString& path, OpenCompletion completion) override;
    void openUrl(const QUrl& url, OpenCompletion completion) override;
    void setNextActivationToken(const QString&) override {}
    [[nodiscard]] platform::Observation
    observeActivations(std::function<void(const platform::RunningApplication&)> activated) override;

    [[nodiscard]] platform::ApplicationState state(platform::ProcessIdentifier pid) const override;
    platform::Outcome activate(platform::ProcessIdentifier pid,
                               platform::ActivationOption option) override;
    platform::Outcome hide(platform::ProcessIdentifier pid) override;
    platform::Outcome terminate(platform::ProcessIdentifier pid,
                                platform::Termination termination) override;

private:
    struct Entry {
        SimApp app;
        bool hidden = false;
        bool ignoresHide = false;
        bool ignoresQuit = false;
        bool focusWithheld = false;
        bool hasRun = false;
    };

    Entry* entry(const QString& name);
    [[nodiscard]] const Entry* entry(const QString& name) const;
    [[nodiscard]] const Entry* entryAt(const QString& path) const;
    Entry* entryWithIdentifier(const QString& bundleIdentifier);
    [[nodiscard]] platform::ProcessIdentifier freePid();
    void numberWindows(std::vector<SimWindow>& windows, const std::vector<SimWindow>& before);
    void launch(Entry& entry);
    void end(Entry& entry);
    void toFront(Entry& entry);
    // After the application in front went away: the most recent one that shows follows.
    void promoteNext();
    void setFront(const QString& name);
    void tell(const platform::RunningApplication& activated);
    // Posts `effect` unless this desktop is gone by then.
    void soon(std::function<void()> effect);

    platform::Scheduler& scheduler_;
    Journal& journal_;
    platform::Files& files_;
    platform::RunningApplication self_;
    std::vector<Entry> entries_; // in the order installed
    std::vector<QString> order_; // running, most recently in front first
    QString front_;
    platform::ProcessIdentifier active_; // who has the keyboard: the front application or ourselves
    std::map<QString, QString> opens_;
    std::map<QString, platform::Failure> refusedPaths_;
    std::int64_t lastPid_ = 1000;
    std::uint64_t lastWindowId_ = 0;
    platform::Observers<const platform::RunningApplication&> observers_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::sim
