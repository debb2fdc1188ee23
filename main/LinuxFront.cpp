// SPDX-License-Identifier: Apache-2.0
#include "main/Entry.h"

#include "cli/AgentClient.h"
#include "cli/CommandLine.h"
#include "platform/linux/LinuxAppInfo.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcessEnvironment>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

namespace skipnest {
namespace {

// Goes on as the agent's executable: beside this one in a build folder, in libexec when installed.
[[noreturn]] void becomeAgent(char** argv) {
    const QString own = QFile::symLinkTarget(QStringLiteral("/proc/self/exe"));
    const QString folder = own.left(own.lastIndexOf(u'/'));
    for (const char* place : {"/skipnest-agent", "/../libexec/skipnest/skipnest-agent"})
        execv(QFile::encodeName(folder + QLatin1String(place)).constData(), argv);
    std::fprintf(stderr, "skipnest: skipnest-agent cannot be started: %s\n", std::strerror(errno));
    std::exit(static_cast<int>(cli::ExitStatus::failed));
}

} // namespace

int runFront(int argc, char** argv) {
    QStringList words = argumentWords(argc, argv);
    const auto environment = QProcessEnvironment::systemEnvironment();
    const platform::AppInfo app = linuxdesktop::linuxAppInfo(environment);
    QString addTarget;
    if (startsAgent(words)) {
        const auto options = agentOptions(words);
        if (!options)
            return static_cast<int>(cli::ExitStatus::wrongUsage);
        addTarget = options->addTarget;
        if (addTarget.isEmpty())
            becomeAgent(argv);
    }
    const QCoreApplication application(argc, argv);
    if (!addTarget.isEmpty()) {
        const QJsonObject status{{QStringLiteral("verb"), QStringLiteral("status")}};
        if (!cli::askAgent(app.runtimeFolder, status))
            becomeAgent(argv);
        words = {QStringLiteral("popover"), QStringLiteral("--add"), addTarget};
    }
    QCoreApplication::setApplicationVersion(app.version);
    const cli::Context context{
        .backend = [argv]() -> const platform::Backend& { becomeAgent(argv); },
        .runtimeFolder = app.runtimeFolder,
        .activationToken = environment.value(QStringLiteral("XDG_ACTIVATION_TOKEN")),
        .supportFolder = app.supportFolder,
    };
    return static_cast<int>(cli::runCommandLine(words, context));
}

} // namespace skipnest
