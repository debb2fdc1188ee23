// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/e2e/ChildProcess.h"
#include "tests/e2e/DesktopSession.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace skipnest::e2e {

struct Binding {
    QString name;
    QString path; // a desktop entry, a file or a folder
    QString combo;
    QString hideCombo = {};
};

struct Answer {
    int exitCode = -1;
    QJsonDocument json;
    QByteArray errors;
};

// The program under test in a session: its configuration, its process, its command line, its log.
class Agent {
public:
    explicit Agent(DesktopSession& session) : session_(session) {}

    // $SKIPNEST_BINARY, else the one of this build.
    [[nodiscard]] static QString binary();
    // Empty where there is a program to test.
    [[nodiscard]] static QString missing();

    // Before start(): what the configuration file will say.
    void bind(const Binding& binding);
    void set(const QString& setting, const QJsonValue& value);
    [[nodiscard]] QString configurationPath() const;
    void writeConfiguration() const;

    // Writes the configuration, starts the agent and waits until it answers.
    [[nodiscard]] bool start();
    // Without the wait, and without touching the configuration.
    [[nodiscard]] ChildProcess startAnother(const QStringList& options = {}) const;
    [[nodiscard]] bool answers() const;
    [[nodiscard]] ChildProcess& process() { return process_; }

    [[nodiscard]] Answer command(const QStringList& arguments) const;

    // The debug log, one line an entry.
    [[nodiscard]] QStringList log() const;
    // An entry with exactly this text, now or within the patience.
    [[nodiscard]] bool logs(const QString& text) const;

private:
    DesktopSession& session_;
    QJsonArray shortcuts_;
    QJsonObject settings_;
    ChildProcess process_;
};

} // namespace skipnest::e2e
