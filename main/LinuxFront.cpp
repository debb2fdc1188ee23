// SPDX-License-Identifier: Apache-2.0
#include "main/Entry.h"

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
    const QStringList words = argumentWords(argc, argv);
    if (startsAgent(words))
        becomeAgent(argv);
    const QCoreApplication application(argc, argv);
    const auto environment = QProcessEnvironment::systemEnvironment();
    const platform::AppInfo app = linuxdesktop::linuxAppInfo(environment);
    QCoreApplication::setApplicationVersion(app.version);
    const cli::Context context{
        .backend = [argv]() -> const platform::Backend& { becomeAgent(argv); },
        .runtimeFolder = app.runtimeFolder,
        .activationToken = environment.value(QStringLiteral("XDG_ACTIVATION_TOKEN")),
    };
    return static_cast<int>(cli::runCommandLine(words, context));
}

} // namespace skipnest
