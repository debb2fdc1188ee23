// SPDX-License-Identifier: Apache-2.0
#include "app/LocationCheck.h"

#include "platform/Alerts.h"
#include "platform/Diagnostics.h"
#include "platform/ProcessLauncher.h"

#include <QCoreApplication>
#include <QStringBuilder>

#include <utility>

namespace skipnest::app {
namespace {

constexpr const char* context = "LocationCheck";

const char* explanation(Misplacement misplacement) {
    switch (misplacement) {
    case Misplacement::translocated:
        return QT_TRANSLATE_NOOP(
            "LocationCheck",
            "Skipnest is running from a temporary macOS location, so permissions you grant won't "
            "stick. Moving it to Applications fixes this for good.");
    case Misplacement::diskImage:
        return QT_TRANSLATE_NOOP(
            "LocationCheck",
            "Skipnest is running from the downloaded disk image. macOS forgets permissions granted "
            "from here - move it to Applications and start it there.");
    }
    Q_UNREACHABLE();
}

} // namespace

std::optional<Misplacement> misplacement(const platform::AppInfo& app) {
    if (app.applicationsFolder.isEmpty())
        return std::nullopt;
    if (app.bundlePath.contains(u"/AppTranslocation/"))
        return Misplacement::translocated;
    if (app.bundlePath.startsWith(u"/Volumes"))
        return Misplacement::diskImage;
    return std::nullopt;
}

QString moveCommand(const QString& bundlePath) {
    // Inside single quotes a shell knows no escape: a quote ends them, stands alone, begins anew.
    QString quoted = bundlePath;
    quoted.replace(u'\'', QStringLiteral("'\\''"));
    return u"rm -rf '/Applications/Skipnest.app' && ditto '" % quoted %
           u"' '/Applications/Skipnest.app' && sleep 1 && open '/Applications/Skipnest.app'";
}

void checkLocation(const platform::Ports& ports, std::function<void()> goOn) {
    const auto place = misplacement(ports.app);
    if (!place)
        return goOn();
    ports.diagnostics.log(u"location: misplaced at " % ports.app.bundlePath);
    const auto answered = [ports, goOn = std::move(goOn)](int button) {
        if (button == 0) {
            const platform::Outcome started =
                ports.processes.launch(QStringLiteral("/bin/sh"),
                                       {QStringLiteral("-c"), moveCommand(ports.app.bundlePath)});
            if (!started)
                ports.diagnostics.log(u"location: not moved: " % started.failure().detail);
        }
        goOn();
    };
    ports.alerts.show({QCoreApplication::translate(context, "Move Skipnest to Applications"),
                       QCoreApplication::translate(context, explanation(*place)),
                       {QCoreApplication::translate(context, "Move to Applications & Relaunch"),
                        QCoreApplication::translate(context, "Later")}},
                      answered);
}

} // namespace skipnest::app
