// SPDX-License-Identifier: Apache-2.0
#include "extension/host/Caller.h"
#include "extension/host/Relay.h"
#include "platform/BrowserExtension.h"
#include "platform/QtScheduler.h"
#include "platform/linux/LinuxAppInfo.h"

#include <QFile>

#include <csignal>
#include <cstdio>
#include <unistd.h>

// Started by a browser for the extension, ended by closing its standard input.
int main(int argc, char** argv) {
    using namespace skipnest;
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QFile::decodeName(argv[i]));
    if (!browserhost::isOurExtension(arguments)) {
        std::fputs("skipnest-browser-host: started by a browser for its extension only\n", stderr);
        return 2;
    }
    // A browser or an agent that is gone is noticed where it is written to.
    std::signal(SIGPIPE, SIG_IGN);
    const platform::QtScheduler clock;
    const QString folder =
        linuxdesktop::linuxAppInfo(QProcessEnvironment::systemEnvironment()).runtimeFolder;
    browserhost::Relay relay(STDIN_FILENO, STDOUT_FILENO, platform::tabsSocketPath(folder), clock);
    return relay.run() == browserhost::Relay::End::browserClosed ? 0 : 1;
}
