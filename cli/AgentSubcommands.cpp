// SPDX-License-Identifier: Apache-2.0
#include "cli/Subcommands.h"

#include "app/ShortcutVerbs.h"
#include "cli/AgentClient.h"
#include "model/StorageService.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

namespace skipnest::cli {
namespace {

ExitStatus printAnswer(const QJsonObject& answer) {
    const QJsonValue result = answer.value(u"result");
    if (!result.isUndefined())
        printJson(result);
    return answer.value(u"ok").toBool() ? ExitStatus::done
                                        : fail(answer.value(u"error").toString());
}

ExitStatus ask(const Context& context, const QJsonObject& request) {
    const auto answer = askAgent(context.runtimeFolder, request);
    return answer ? printAnswer(*answer)
                  : fail(QStringLiteral("no agent runs; start it with `skipnest`"));
}

QJsonObject verb(const char* name) {
    return {{QStringLiteral("verb"), QString::fromLatin1(name)}};
}

QJsonObject verb(const char* name, const Arguments& arguments) {
    QJsonObject request = verb(name);
    request.insert(QStringLiteral("name"), arguments.positional.first());
    return request;
}

model::StorageService storageOf(const platform::Ports& ports) {
    return {ports.files, ports.diagnostics, ports.wallClock, ports.defaults, ports.app};
}

// Carries a verb out on the configuration file, as an agent would on its list.
ExitStatus onFile(const Context& context,
                  const std::function<app::ControlReply(model::ShortcutListViewModel&,
                                                        const platform::Ports&)>& carryOut) {
    const platform::Ports& ports = context.backend().ports();
    model::StorageService storage = storageOf(ports);
    const auto nothing = [](const model::AppConfiguration&) {};
    model::ShortcutListViewModel list(storage, ports.workspace, ports.bookmarks, ports.files,
                                      ports.wallClock, ports.defaults, ports.app, nothing, nothing);
    return printAnswer(carryOut(list, ports).toJson());
}

} // namespace

ExitStatus runJump(const Arguments& arguments, const Context& context) {
    QJsonObject request = verb("jump", arguments);
    if (!context.activationToken.isEmpty())
        request.insert(QStringLiteral("token"), context.activationToken);
    return ask(context, request);
}

ExitStatus runHide(const Arguments& arguments, const Context& context) {
    return ask(context, verb("hide", arguments));
}

ExitStatus runRestore(const Arguments& arguments, const Context& context) {
    QJsonObject request = verb("restore");
    if (!arguments.positional.isEmpty())
        request.insert(QStringLiteral("date"), arguments.positional.first());
    if (const auto answer = askAgent(context.runtimeFolder, request))
        return printAnswer(*answer);
    model::StorageService storage = storageOf(context.backend().ports());
    return printAnswer(app::restoreVerb(storage, request).toJson());
}

ExitStatus runNextWindow(const Arguments&, const Context& context) {
    return ask(context, verb("next-window"));
}

ExitStatus runPreviousWindow(const Arguments&, const Context& context) {
    return ask(context, verb("previous-window"));
}

ExitStatus runStatus(const Arguments&, const Context& context) {
    return ask(context, verb("status"));
}

ExitStatus runQuit(const Arguments&, const Context& context) {
    return ask(context, verb("quit"));
}

ExitStatus runAdd(const Arguments& arguments, const Context& context) {
    QJsonObject request = verb("add");
    const QFileInfo target(arguments.positional.first());
    request.insert(QStringLiteral("path"), QDir::cleanPath(target.absoluteFilePath()));
    if (const auto key = arguments.value(QStringLiteral("key")))
        request.insert(QStringLiteral("key"), *key);
    if (const auto key = arguments.value(QStringLiteral("hide-key")))
        request.insert(QStringLiteral("hideKey"), *key);
    if (const auto answer = askAgent(context.runtimeFolder, request))
        return printAnswer(*answer);
    return onFile(context, [&request](auto& list, const platform::Ports& ports) {
        return app::addVerb(list, ports.files, request);
    });
}

ExitStatus runRemove(const Arguments& arguments, const Context& context) {
    const QJsonObject request = verb("remove", arguments);
    if (const auto answer = askAgent(context.runtimeFolder, request))
        return printAnswer(*answer);
    return onFile(context, [&request](auto& list, const platform::Ports&) {
        return app::removeVerb(list, request);
    });
}

ExitStatus runList(const Arguments&, const Context& context) {
    if (const auto answer = askAgent(context.runtimeFolder, verb("list")))
        return printAnswer(*answer);
    return onFile(context, [](auto& list, const platform::Ports&) {
        return app::ControlReply::success(app::listVerb(list));
    });
}

} // namespace skipnest::cli
