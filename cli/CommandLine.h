// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Backend.h"

#include <QByteArray>
#include <QJsonValue>
#include <QString>
#include <QStringList>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace skipnest::cli {

// What every subcommand ends with, as scripts see it.
enum class ExitStatus { done = 0, failed = 1, wrongUsage = 2 };

// What a subcommand can use. `backend` makes the ports of this machine when first needed; it is not
// called by the pure ones.
struct Context {
    std::function<const platform::Backend&()> backend;
    QString runtimeFolder; // where a running agent would listen
    QString activationToken;
    QString supportFolder = {}; // where the statistics lie
};

// The words behind a subcommand, sorted into options ("--name value", "--flag") and the rest.
struct Arguments {
    QStringList positional;
    std::map<QString, QString> options; // without the dashes; a flag's value is empty

    [[nodiscard]] bool has(const QString& option) const { return options.contains(option); }
    [[nodiscard]] std::optional<QString> value(const QString& option) const;
};

// One subcommand. `options` lists what may be given, "name=" for one that takes a value.
struct Subcommand {
    QString name; // one or two words
    QString usage;
    QString summary;
    int fewest = 0; // positional arguments
    int most = 0;
    QStringList options;
    ExitStatus (*run)(const Arguments& arguments, const Context& context) = nullptr;
};

[[nodiscard]] const std::vector<Subcommand>& subcommands();

// Carries out the command line behind the program's name. The words "run" and none at all are not
// for this function: they start the agent.
[[nodiscard]] ExitStatus runCommandLine(const QStringList& words, const Context& context);

// Prints one JSON value (or a bare text) and a line break to standard output.
void printJson(const QJsonValue& value);
void printText(const QString& text);
// Prints a line to standard error and answers `failed`.
ExitStatus fail(const QString& message);
// Whole content of a file, "-" for standard input; prints why not.
[[nodiscard]] std::optional<QByteArray> readInput(const QString& path, qint64 limit);

} // namespace skipnest::cli
