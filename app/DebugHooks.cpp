// SPDX-License-Identifier: Apache-2.0
#include "app/DebugHooks.h"

#include "platform/Diagnostics.h"
#include "platform/DistributedNotifications.h"
#include "platform/Files.h"

#include <QStringBuilder>

#include <utility>

namespace skipnest::app {

void DebugHooks::install(const platform::Ports& ports, std::vector<Hook> hooks) {
    const QString marker = ports.app.logFolder % u"/Skipnest-debughooks";
    if (ports.files.kind(marker) == platform::FileKind::none)
        return;
    for (Hook& hook : hooks)
        observers_.push_back(ports.distributedNotifications.observe(
            u"com.skipnest.debug." % hook.name, std::move(hook.run)));
    ports.diagnostics.log(QStringLiteral("debug hooks enabled"));
}

} // namespace skipnest::app
