// SPDX-License-Identifier: Apache-2.0
#include "cli/Subcommands.h"

#include "app/Doctor.h"
#include "cli/AgentClient.h"

#include <QJsonObject>

namespace skipnest::cli {

ExitStatus runDoctor(const Arguments& arguments, const Context& context) {
    std::vector<app::DoctorRow> rows = app::doctorRows(context.backend());
    using State = platform::Availability::State;
    const bool agentRuns =
        askAgent(context.runtimeFolder, {{QStringLiteral("verb"), QStringLiteral("status")}})
            .has_value();
    rows.push_back({QStringLiteral("agent"),
                    agentRuns ? platform::Availability{}
                              : platform::Availability{State::unavailable,
                                                       QStringLiteral("No agent is running."),
                                                       QStringLiteral("Start it: skipnest")}});
    if (arguments.has(QStringLiteral("json")))
        printJson(app::doctorJson(rows));
    else
        printText(app::doctorText(rows).chopped(1));
    return ExitStatus::done;
}

} // namespace skipnest::cli
