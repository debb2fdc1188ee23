// SPDX-License-Identifier: Apache-2.0
#include "ui/crash/CrashReportModel.h"

#include "app/AppDelegate.h"

namespace skipnest::ui {

CrashReportModel::CrashReportModel(app::AppDelegate& agent, QObject* parent)
    : QObject(parent), agent_(agent) {
    connect(&agent.crashReporter(), &services::CrashReporter::waitingChanged, this,
            &CrashReportModel::changed);
}

bool CrashReportModel::isWaiting() const {
    return agent_.crashReporter().waiting().has_value();
}

QString CrashReportModel::preview() const {
    return isWaiting() ? agent_.crashReporter().preview() : QString();
}

void CrashReportModel::send() {
    if (isWaiting())
        agent_.crashReporter().sendWaiting();
    Q_EMIT answered();
}

void CrashReportModel::discard() {
    if (isWaiting())
        agent_.crashReporter().discardWaiting();
    Q_EMIT answered();
}

} // namespace skipnest::ui
