// SPDX-License-Identifier: Apache-2.0
#include "voice/JumpReach.h"

#include "platform/Diagnostics.h"
#include "platform/Workspace.h"

#include <QStringBuilder>

namespace skipnest::voice {

using namespace Qt::StringLiterals;

void JumpReach::open(const QString& path, JumpTarget::Kind kind) {
    const auto told = [&diagnostics = ports.diagnostics, path](const platform::Outcome& done) {
        if (!done)
            diagnostics.log(u"voice: could not open "_s % path % u": "_s % done.failure().detail);
    };
    if (kind == JumpTarget::Kind::app)
        ports.workspace.openApplication(path, told);
    else
        ports.workspace.openFile(path, told);
}

void JumpReach::activate(const platform::RunningApplication& app) {
    if (!app.bundlePath.isEmpty())
        return open(app.bundlePath, JumpTarget::Kind::app);
    const auto done =
        ports.applications.activate(app.pid, platform::ActivationOption::ignoringOtherApps);
    if (!done)
        ports.diagnostics.log(u"voice: could not activate "_s % app.name % u": "_s %
                              done.failure().detail);
}

void JumpReach::jump(const model::ShortcutItem& item, JumpTarget::Kind kind) {
    if (shortcutJump)
        shortcutJump(item);
    else
        open(item.targetPath, kind);
}

} // namespace skipnest::voice
