// SPDX-License-Identifier: Apache-2.0
#include "voice/InstalledInFolders.h"

#include "platform/Files.h"
#include "platform/Workspace.h"

namespace skipnest::voice {

std::vector<platform::InstalledApplication> InstalledInFolders::list() {
    std::vector<platform::InstalledApplication> found;
    for (const QString& folder : ports_.app.installedApplications) {
        const platform::Result<QStringList> names = ports_.files.list(folder);
        if (!names) // a folder that is not there holds nothing
            continue;
        for (const QString& name : *names) {
            const QString path = folder + u'/' + name;
            if (ports_.workspace.isApplication(path))
                found.push_back({path, ports_.workspace.displayName(path)});
        }
    }
    return found;
}

} // namespace skipnest::voice
