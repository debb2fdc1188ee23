// SPDX-License-Identifier: Apache-2.0
#include "tests/e2e/Agent.h"

#include "tests/e2e/Chord.h"
#include "tests/e2e/Waiting.h"

#include <QDir>
#include <QFile>
#include <QUuid>

#include <algorithm>

namespace skipnest::e2e {
namespace {

QJsonObject comboObject(const QString& combo) {
    const Chord keys = chord(combo);
    return {{QStringLiteral("keyCode"), int{keys.keyCode}},
            {QStringLiteral("modifiers"), static_cast<int>(keys.modifiers)}};
}

QString targetType(const QString& path) {
    if (path.endsWith(QStringLiteral(".desktop")))
        return QStringLiteral("application");
    return QFileInfo(path).isDir() ? QStringLiteral("folder") : QStringLiteral("file");
}

} // namespace

QString Agent::binary() {
    return qEnvironmentVariable("SKIPNEST_BINARY", QStringLiteral(SKIPNEST_BUILT_BINARY));
}

QString Agent::missing() {
    return QFileInfo(binary()).isExecutable() ? QString() : binary();
}

void Agent::bind(const Binding& binding) {
    QJsonObject shortcut{
        {QStringLiteral("id"), QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper()},
        {QStringLiteral("name"), binding.name},
        {QStringLiteral("targetPath"), binding.path},
        {QStringLiteral("targetType"), targetType(binding.path)},
        {QStringLiteral("sortOrder"), static_cast<int>(shortcuts_.size())},
        {QStringLiteral("createdAt"), QStringLiteral("2026-07-24T09:00:00Z")},
        {QStringLiteral("keyCombo"), comboObject(binding.combo)},
    };
    if (!binding.hideCombo.isEmpty())
        shortcut.insert(QStringLiteral("hideKeyCombo"), comboObject(binding.hideCombo));
    shortcuts_.append(shortcut);
}

void Agent::set(const QString& setting, const QJsonValue& value) {
    settings_.insert(setting, value.isString() && setting.endsWith(QStringLiteral("Combo"))
                                  ? QJsonValue(comboObject(value.toString()))
                                  : value);
}

QString Agent::configurationPath() const {
    return session_.configHome() + QStringLiteral("/Skipnest/config.json");
}

void Agent::writeConfiguration() const {
    QJsonObject document{
        {QStringLiteral("version"), 1},
        {QStringLiteral("shortcuts"), shortcuts_},
        {QStringLiteral("launchAtLogin"), false},
        {QStringLiteral("menuBarIconName"), QStringLiteral("skipnest")},
        {QStringLiteral("didOnboard"), true},
        {QStringLiteral("seenOnboardingVersion"), 1000},
    };
    for (auto setting = settings_.begin(); setting != settings_.end(); ++setting)
        document.insert(setting.key(), setting.value());
    QDir().mkpath(QFileInfo(configurationPath()).path());
    QFile file(configurationPath());
    if (!file.open(QIODevice::WriteOnly) || file.write(QJsonDocument(document).toJson()) < 0)
        qFatal("cannot write %s", qPrintable(configurationPath()));
}

bool Agent::start() {
    writeConfiguration();
    process_ = startAnother();
    return eventually([this] { return answers(); });
}

ChildProcess Agent::startAnother(const QStringList& options) const {
    return session_.start(
        QStringList{binary(), QStringLiteral("run"), QStringLiteral("--background")} + options);
}

bool Agent::answers() const {
    return command({QStringLiteral("status")}).exitCode == 0;
}

Answer Agent::command(const QStringList& arguments) const {
    const Finished finished = session_.runToEnd(QStringList{binary()} + arguments);
    return {finished.exitCode, QJsonDocument::fromJson(finished.output), finished.errors};
}

QStringList Agent::log() const {
    QFile file(session_.stateHome() + QStringLiteral("/Skipnest/Skipnest-debug.log"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
}

bool Agent::logs(const QString& text) const {
    return eventually([&] {
        const QStringList lines = log();
        return std::ranges::any_of(
            lines, [&](const QString& line) { return line.section(u' ', 1) == text; });
    });
}

} // namespace skipnest::e2e
