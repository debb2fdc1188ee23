// SPDX-License-Identifier: Apache-2.0
#include "cli/TraceRecorder.h"

#include "model/ConfigurationCoding.h"
#include "platform/Diagnostics.h"
#include "platform/Files.h"
#include "platform/Workspace.h"

#include <QStringBuilder>

#include <utility>

namespace skipnest::cli {

using model::ShortcutItem;
using platform::Failure;
using platform::Instant;
using platform::Result;
using platform::RunningApplication;

namespace {

using namespace std::chrono_literals;

// The tap sees the key of a hotkey too, before or after the hotkey itself arrives on its own way;
// `hotkey` stands for both. Nobody presses two keys this close together.
constexpr platform::Duration oneKey = 5ms;
constexpr platform::Duration hotkeyFollowsWithin = 50ms;

bool areOneKey(Instant a, Instant b) {
    return std::chrono::abs(a - b) < oneKey;
}

} // namespace

Result<std::unique_ptr<TraceRecorder>> TraceRecorder::open(const QString& path,
                                                           app::AppDelegate& agent) {
    std::unique_ptr<TraceRecorder> recorder(new TraceRecorder(agent));
    recorder->file_.setFileName(path);
    if (!recorder->file_.open(QFile::WriteOnly | QFile::NewOnly | QFile::Unbuffered,
                              QFile::ReadOwner | QFile::WriteOwner))
        return Failure{Failure::Kind::refused, path % u": " % recorder->file_.errorString()};
    recorder->writeStage();
    return recorder;
}

void TraceRecorder::writeStage() {
    const platform::Ports& ports = agent_.ports();
    writer_ = std::make_unique<trace::TraceWriter>(
        ports.scheduler.now(), [this](const QByteArray& line) { file_.write(line + '\n'); });
    const Instant now = ports.scheduler.now();
    writer_->write(now, trace::SetClock{ports.wallClock.nowUtc(), ports.wallClock.zone()});
    QJsonObject settings = model::toJson(agent_.viewModel().config());
    settings.remove(QStringLiteral("shortcuts"));
    writer_->write(now, trace::SetConfig{settings});
    for (const RunningApplication& app : ports.workspace.runningApplications())
        declare(app);
    for (const ShortcutItem& item : agent_.viewModel().shortcuts()) {
        if (item.targetType == ShortcutItem::TargetType::file)
            writer_->write(now, trace::AddFile{item.targetPath});
        if (item.targetType == ShortcutItem::TargetType::folder)
            writer_->write(now, trace::AddFolder{item.targetPath});
        writer_->write(now, trace::AddShortcut{item.name, item.targetPath, item.targetType,
                                               item.keyCombo, item.hideKeyCombo});
    }
    for (const auto& refused : agent_.hotkeys().refused())
        writer_->write(now, trace::RefuseCombo{refused.hotkey.combo, refused.status});
    if (const auto front = ports.workspace.frontmostApplication())
        writer_->write(now, trace::BringToFront{front->name});
    writer_->write(now, trace::Start{});

    activations_ = ports.workspace.observeActivations(
        [this](const RunningApplication& app) { activated(app); });
    presses_ =
        agent_.hotkeys().observePresses([this](const hotkeys::PlannedHotkey& hotkey, Instant time) {
            hotkeyPressed(hotkey, time);
        });
    Result<platform::KeyTap> tap = ports.keyEvents.listen(*this);
    if (tap)
        tap_ = std::move(tap).value();
    else
        ports.diagnostics.log(u"record: modifier keys are missing, " % tap.failure().detail);
}

void TraceRecorder::declare(const RunningApplication& app) {
    if (!declared_.insert(app.name).second)
        return;
    sim::SimApp declared;
    declared.name = app.name;
    declared.bundleIdentifier = app.bundleIdentifier;
    declared.path = app.bundlePath;
    declared.pid = app.pid;
    declared.windows.emplace_back();
    writer_->write(agent_.ports().scheduler.now(), trace::DeclareApp{declared});
}

void TraceRecorder::activated(const RunningApplication& app) {
    writePendingKey();
    declare(app);
    writer_->write(agent_.ports().scheduler.now(), trace::BringToFront{app.name});
}

void TraceRecorder::hotkeyPressed(const hotkeys::PlannedHotkey& hotkey, Instant time) {
    if (pendingKey_ && areOneKey(*pendingKey_, time))
        pendingKey_.reset();
    writePendingKey();
    lastHotkey_ = time;
    writer_->write(time, trace::PressHotkey{hotkey.combo});
}

void TraceRecorder::modifiersChanged(const platform::ModifierEvent& event) {
    writePendingKey();
    writer_->write(event.time, trace::ChangeModifiers{event.keyCode, event.flags});
}

void TraceRecorder::otherKeyPressed(Instant time) {
    writePendingKey();
    if (lastHotkey_ && areOneKey(*lastHotkey_, time))
        return;
    pendingKey_ = time;
    pendingTimer_ = agent_.ports().scheduler.after(hotkeyFollowsWithin, "recorded key",
                                                   [this] { writePendingKey(); });
}

void TraceRecorder::writePendingKey() {
    pendingTimer_.reset();
    if (const auto time = std::exchange(pendingKey_, std::nullopt))
        writer_->write(*time, trace::PressKey{trace::TraceWriter::withheldKey, {}, {}, false});
}

} // namespace skipnest::cli
