// SPDX-License-Identifier: Apache-2.0
#include "main/Entry.h"

#include "app/Agent.h"
#include "cli/CommandLine.h"
#include "cli/TraceRecorder.h"
#include "platform/Diagnostics.h"
#include "platform/UnavailablePorts.h"
#include "platform/linux/LinuxAppInfo.h"
#include "platform/linux/LinuxBackend.h"
#include "platform/linux/SessionKind.h"
#include "platform/linux/TerminationSignals.h"
#include "ui/QuickAlerts.h"
#include "ui/QuickPanels.h"
#include "ui/Translations.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QProcessEnvironment>
#include <QQuickWindow>
#include <QSGRendererInterface>

#include <vector>

namespace skipnest {
namespace {

using linuxdesktop::Session;
using linuxdesktop::SessionKind;

// The application object for the session at hand; one with widgets, because the tray's icon and
// menu are. The platform plugin is handed over as an argument: in the environment every program
// that is opened from here would inherit it.
class SessionApplication {
public:
    SessionApplication(int argc, char** argv)
        : session_(linuxdesktop::findSession(QProcessEnvironment::systemEnvironment())) {
        for (int i = 0; i < argc; ++i)
            arguments_.emplace_back(argv[i]);
        if (!session_.qtPlatform.isEmpty()) {
            arguments_.emplace_back("-platform");
            arguments_.push_back(session_.qtPlatform);
        }
        for (QByteArray& argument : arguments_)
            argv_.push_back(argument.data());
        argv_.push_back(nullptr);
        argc_ = static_cast<int>(arguments_.size());
        application_ = std::make_unique<QApplication>(argc_, argv_.data());
        // Panels come and go; the agent stays.
        QGuiApplication::setQuitOnLastWindowClosed(false);
    }

    [[nodiscard]] SessionKind session() const { return session_.kind; }

private:
    Session session_;
    std::vector<QByteArray> arguments_;
    std::vector<char*> argv_;
    int argc_ = 0;
    std::unique_ptr<QApplication> application_;
};

void nameApplication(const platform::AppInfo& app) {
    QCoreApplication::setApplicationName(QStringLiteral("Skipnest"));
    QCoreApplication::setApplicationVersion(app.version);
    QGuiApplication::setDesktopFileName(app.bundleIdentifier);
}

// Drawing by software shows a panel sooner than a GL context is made, and costs 60 MB less. Before
// the first window, and only where the person has not chosen.
void preferSoftwareRendering() {
    if (!qEnvironmentVariableIsSet("QT_QUICK_BACKEND"))
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

// Null where no trace is wanted or it cannot be written, which is said.
std::unique_ptr<cli::TraceRecorder> startRecording(const QString& path,
                                                   app::AppDelegate& delegate) {
    if (path.isEmpty())
        return nullptr;
    auto recorder = cli::TraceRecorder::open(path, delegate);
    if (recorder)
        return std::move(recorder).value();
    delegate.ports().diagnostics.print(QStringLiteral("[Skipnest] No trace is recorded: ") +
                                       recorder.failure().detail);
    return nullptr;
}

} // namespace

int runAgent(int argc, char** argv, const AgentOptions& options) {
    const QString recordFile =
        options.recordFile.isEmpty() ? QString() : QFileInfo(options.recordFile).absoluteFilePath();
    const QString addTarget = options.addTarget.isEmpty() || options.addTarget.contains(u"://")
                                  ? options.addTarget
                                  : QFileInfo(options.addTarget).absoluteFilePath();
    const platform::AppInfo app =
        linuxdesktop::linuxAppInfo(QProcessEnvironment::systemEnvironment());
    // What is opened from here starts at home, wherever the agent was started, and the agent keeps
    // no mounted disk busy.
    QDir::setCurrent(app.home);
    const SessionApplication application(argc, argv);
    nameApplication(app);
    preferSoftwareRendering();
    ui::installTranslations(*QCoreApplication::instance(), QLocale());
    app::AppDelegate* launched = nullptr;
    ui::QuickAlerts alerts([&launched]() -> const ui::Palette& {
        return ui::palette(launched != nullptr ? launched->viewModel().theme()
                                               : model::Theme::brand);
    });
    ui::QuickPanels panels;
    const auto backend = linuxdesktop::makeLinuxBackend(application.session(), alerts, panels);
    std::unique_ptr<cli::TraceRecorder> recorder;
    app::Agent agent(*backend,
                     {
                         .quit = [](int status) { QCoreApplication::exit(status); },
                         .created = [&](app::AppDelegate& delegate) { panels.attach(delegate); },
                         .launched =
                             [&](app::AppDelegate& delegate) {
                                 launched = &delegate;
                                 recorder = startRecording(recordFile, delegate);
                                 if (!addTarget.isEmpty())
                                     (void)delegate.shell().addDropped({addTarget});
                                 else if (options.popover == AgentOptions::Popover::open)
                                     delegate.showPopoverAfterStart();
                             },
                     });
    const linuxdesktop::TerminationSignals signals_([] { QCoreApplication::quit(); });
    // Inside the event loop, so that a start that fails can end it.
    backend->ports().scheduler.post([&agent] { agent.start(); });
    const int status = QCoreApplication::exec();
    // The panels show what the agent is about to take down.
    panels.detach();
    return status;
}

int runSubcommandOfAgent(int argc, char** argv, const QStringList& words) {
    const auto environment = QProcessEnvironment::systemEnvironment();
    const platform::AppInfo app = linuxdesktop::linuxAppInfo(environment);
    // Only the doctor looks at the display; the rest starts faster without one.
    const bool looksAtDisplay = words.first() == u"doctor";
    std::unique_ptr<SessionApplication> gui;
    std::unique_ptr<QCoreApplication> core;
    if (looksAtDisplay)
        gui = std::make_unique<SessionApplication>(argc, argv);
    else
        core = std::make_unique<QCoreApplication>(argc, argv);
    nameApplication(app);
    ui::QuickAlerts alerts([]() -> const ui::Palette& { return ui::palette(model::Theme::brand); });
    platform::UnavailablePanels panels;
    std::unique_ptr<platform::Backend> backend;
    const cli::Context context{
        .backend = [&]() -> const platform::Backend& {
            if (!backend)
                backend = linuxdesktop::makeLinuxBackend(gui ? gui->session() : SessionKind::none,
                                                         alerts, panels);
            return *backend;
        },
        .runtimeFolder = app.runtimeFolder,
        .activationToken = environment.value(QStringLiteral("XDG_ACTIVATION_TOKEN")),
    };
    return static_cast<int>(cli::runCommandLine(words, context));
}

} // namespace skipnest
