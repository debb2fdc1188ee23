// SPDX-License-Identifier: Apache-2.0
#include "hotkeys/WindowCycler.h"

#include "platform/AppleScript.h"
#include "platform/Diagnostics.h"
#include "platform/Workspace.h"

#include <QStringBuilder>

#include <array>

namespace skipnest::hotkeys {

using platform::CycleDirection;

namespace {

using namespace std::chrono_literals;

// An application that does not answer by then is left alone.
constexpr platform::Duration scriptBudget = 2s;

// What applications call a window in the Dock.
constexpr std::array<QStringView, 3> properties{u"minimized", u"miniaturized", u"collapsed"};

QString command(QStringView property, CycleDirection direction) {
    switch (direction) {
    case CycleDirection::next:
        return u"set " % property % u" of (first window whose " % property % u" is false) to true";
    case CycleDirection::previous:
        return u"set " % property % u" of (last window whose " % property % u" is true) to false";
    }
    Q_UNREACHABLE();
}

} // namespace

WindowCycler::WindowCycler(const platform::Ports& ports) : ports_(ports), reactivation_(ports) {}

QString WindowCycler::script(const QString& bundleIdentifier, CycleDirection direction) {
    return u"tell application id \"" % platform::escapedForAppleScript(bundleIdentifier) %
           u"\"\n    try\n        " % command(properties[0], direction) %
           u"\n    on error\n        try\n            " % command(properties[1], direction) %
           u"\n        on error\n            " % command(properties[2], direction) %
           u"\n        end try\n    end try\nend tell";
}

void WindowCycler::cycle(CycleDirection direction) {
    const auto front = ports_.workspace.frontmostApplication();
    if (!front || front->bundleIdentifier.isEmpty())
        return;
    const QString& bundle = front->bundleIdentifier;
    const platform::ScriptAnswer answer = ports_.scripts.run(
        {script(bundle, direction), platform::CycleWindows{bundle, direction}}, scriptBudget);
    if (std::holds_alternative<platform::ScriptText>(answer))
        return;
    const auto* error = std::get_if<platform::ScriptError>(&answer);
    ports_.diagnostics.print(
        u"[Skipnest] Window switching via Apple Events failed for " % bundle % u": " %
        (error != nullptr ? error->description : QStringLiteral("no answer within 2 s")));
    reactivation_.bringAllWindowsForward(front->pid);
}

} // namespace skipnest::hotkeys
