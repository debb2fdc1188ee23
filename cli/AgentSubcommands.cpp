// SPDX-License-Identifier: Apache-2.0
#include "cli/Subcommands.h"

#include "app/ShortcutVerbs.h"
#include "app/TransferVerbs.h"
#include "cli/AgentClient.h"
#include "model/ConfigurationCoding.h"
#include "model/StorageService.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QTemporaryFile>

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
QJsonObject answerFromFile(
    const Context& context,
    const std::function<app::ControlReply(model::ShortcutListViewModel&, const platform::Ports&)>&
        carryOut) {
    const platform::Ports& ports = context.backend().ports();
    model::StorageService storage = storageOf(ports);
    const auto nothing = [](const model::AppConfiguration&) {};
    model::ShortcutListViewModel list(storage, ports.workspace, ports.bookmarks, ports.files,
                                      ports.wallClock, ports.defaults, ports.app, nothing, nothing);
    return carryOut(list, ports).toJson();
}

template <typename CarryOut> ExitStatus onFile(const Context& context, const CarryOut& carryOut) {
    return printAnswer(answerFromFile(context, carryOut));
}

// A file's URL stays one; every other word is a path as the shell's folder has it.
QString targetOf(const QString& word) {
    const QFileInfo file(word);
    return word.contains(u"://") && !file.exists() ? word
                                                   : QDir::cleanPath(file.absoluteFilePath());
}

model::ShortcutTransfer transferOf(model::ShortcutListViewModel& list,
                                   const platform::Ports& ports) {
    return {list, ports.files, ports.wallClock, ports.app};
}

ExitStatus printExport(const QJsonObject& answer) {
    const QJsonValue document = answer.value(u"result")[u"document"];
    if (document.isUndefined())
        return printAnswer(answer);
    // The document ends its last line itself.
    printText(document.toString().chopped(1));
    return ExitStatus::done;
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

ExitStatus runSwitcher(const Arguments& arguments, const Context& context) {
    return ask(context,
               arguments.positional.isEmpty() ? verb("switcher") : verb("switcher", arguments));
}

ExitStatus runStatus(const Arguments&, const Context& context) {
    return ask(context, verb("status"));
}

ExitStatus runQuit(const Arguments&, const Context& context) {
    return ask(context, verb("quit"));
}

ExitStatus runAdd(const Arguments& arguments, const Context& context) {
    QJsonObject request = verb("add");
    request.insert(QStringLiteral("path"), targetOf(arguments.positional.first()));
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

ExitStatus runConfirm(const Arguments& arguments, const Context& context) {
    const QJsonObject request = verb("confirm", arguments);
    if (const auto answer = askAgent(context.runtimeFolder, request))
        return printAnswer(*answer);
    return onFile(context, [&request](auto& list, const platform::Ports&) {
        return app::confirmVerb(list, request);
    });
}

ExitStatus runPopover(const Arguments& arguments, const Context& context) {
    QJsonObject request = verb("popover");
    if (const auto target = arguments.value(QStringLiteral("add")))
        request.insert(QStringLiteral("add"), targetOf(*target));
    return ask(context, request);
}

ExitStatus runExport(const Arguments& arguments, const Context& context) {
    QJsonObject request = verb("export");
    const QString file = arguments.positional.value(0, QStringLiteral("-"));
    if (file != u"-")
        request.insert(QStringLiteral("path"), QFileInfo(file).absoluteFilePath());
    if (const auto answer = askAgent(context.runtimeFolder, request))
        return printExport(*answer);
    return printExport(answerFromFile(context, [&](auto& list, const platform::Ports& ports) {
        auto transfer = transferOf(list, ports);
        return app::exportVerb(transfer, request);
    }));
}

ExitStatus runImport(const Arguments& arguments, const Context& context) {
    const QString& file = arguments.positional.first();
    QString path = QFileInfo(file).absoluteFilePath();
    // Standard input and pipes are this process's own: the agent gets a copy.
    QTemporaryFile copy;
    if (file == u"-" ||
        (QFileInfo::exists(path) && !QFileInfo(path).isFile() && !QFileInfo(path).isDir())) {
        // Without an agent this process goes on as another program, which must find the pipe
        // unread.
        if (!askAgent(context.runtimeFolder, verb("status")))
            (void)context.backend();
        const auto bytes = readInput(file, model::largestConfiguration);
        if (!bytes)
            return ExitStatus::failed;
        if (!copy.open() || copy.write(*bytes) != bytes->size() || !copy.flush())
            return fail(copy.errorString());
        path = copy.fileName();
    }
    QJsonObject request = verb("import");
    request.insert(QStringLiteral("path"), path);
    if (const auto answer = askAgent(context.runtimeFolder, request))
        return printAnswer(*answer);
    return onFile(context, [&request](auto& list, const platform::Ports& ports) {
        auto transfer = transferOf(list, ports);
        return app::importVerb(transfer, list, ports.files, request);
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
