// SPDX-License-Identifier: Apache-2.0
#include "cli/CommandLine.h"

#include "cli/Subcommands.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringBuilder>

#include <algorithm>
#include <cstdio>

namespace skipnest::cli {
namespace {

void write(std::FILE* stream, const QString& text) {
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stream);
    std::fflush(stream);
}

ExitStatus wrongUsage(const QString& message, const Subcommand* subcommand = nullptr) {
    write(stderr, u"skipnest: " % message % u'\n');
    if (subcommand != nullptr)
        write(stderr, u"usage: skipnest " % subcommand->usage % u'\n');
    else
        write(stderr, QStringLiteral("`skipnest help` lists the subcommands.\n"));
    return ExitStatus::wrongUsage;
}

ExitStatus help(const QStringList& words) {
    if (words.isEmpty()) {
        QString text =
            QStringLiteral("usage: skipnest [run [--background] [--record FILE]]   the agent\n"
                           "       skipnest SUBCOMMAND …\n\n");
        for (const Subcommand& subcommand : subcommands())
            text += u"  " % subcommand.usage.leftJustified(44) % u' ' % subcommand.summary % u'\n';
        text +=
            QStringLiteral("\n`skipnest help SUBCOMMAND` says more; `skipnest --version` prints "
                           "the version.\n");
        write(stdout, text);
        return ExitStatus::done;
    }
    const QString name = words.join(u' ');
    for (const Subcommand& subcommand : subcommands()) {
        if (subcommand.name == name) {
            write(stdout,
                  u"usage: skipnest " % subcommand.usage % u"\n\n" % subcommand.summary % u'\n');
            return ExitStatus::done;
        }
    }
    if (name == u"run") {
        write(stdout,
              QStringLiteral(
                  "usage: skipnest run [--background] [--record FILE] [--add FILE]\n\n"
                  "Starts the agent and takes over from one that runs. --background is what "
                  "the autostart entry uses. --record writes a trace that `skipnest replay` "
                  "reads: modifier keys and registered keys only, never over a file that "
                  "exists. --add opens the popover on a new shortcut for the file; an agent that "
                  "runs does it, and stays.\n"));
        return ExitStatus::done;
    }
    return wrongUsage(u"there is no subcommand \"" % name % u"\"");
}

// The option's value where it takes one ("name="), nothing where it is a flag.
std::optional<QString> optionForm(const Subcommand& subcommand, const QString& name) {
    for (const QString& form : subcommand.options) {
        if (form == name || form == name % u'=')
            return form;
    }
    return std::nullopt;
}

ExitStatus dispatch(const Subcommand& subcommand, const QStringList& words,
                    const Context& context) {
    Arguments arguments;
    bool optionsEnded = false;
    for (qsizetype i = 0; i < words.size(); ++i) {
        const QString& word = words[i];
        if (!optionsEnded && word == u"--") {
            optionsEnded = true;
            continue;
        }
        if (optionsEnded || !word.startsWith(u"--")) {
            arguments.positional.append(word);
            continue;
        }
        const QString name = word.mid(2);
        const auto form = optionForm(subcommand, name);
        if (!form)
            return wrongUsage(u"unknown option \"" % word % u"\"", &subcommand);
        if (!form->endsWith(u'=')) {
            arguments.options[name] = QString();
            continue;
        }
        if (++i == words.size())
            return wrongUsage(word % u" needs a value", &subcommand);
        arguments.options[name] = words[i];
    }
    const auto given = static_cast<int>(arguments.positional.size());
    if (given < subcommand.fewest)
        return wrongUsage(QStringLiteral("an argument is missing"), &subcommand);
    if (given > subcommand.most)
        return wrongUsage(u"too many arguments, from \"" % arguments.positional[subcommand.most] %
                              u"\" on",
                          &subcommand);
    return subcommand.run(arguments, context);
}

} // namespace

std::optional<QString> Arguments::value(const QString& option) const {
    const auto found = options.find(option);
    return found == options.end() ? std::nullopt : std::optional(found->second);
}

const std::vector<Subcommand>& subcommands() {
    const auto text = [](const char* latin1) { return QString::fromUtf8(latin1); };
    static const std::vector<Subcommand> table{
        {text("combo"),
         text("combo TEXT"),
         text("what a key combination is and is called"),
         1,
         1,
         {},
         runCombo},
        {text("config check"),
         text("config check FILE"),
         text("a configuration as it would be written back"),
         1,
         1,
         {},
         runConfigCheck},
        {text("hotkeys"),
         text("hotkeys --config FILE"),
         text("what a configuration registers, in order"),
         0,
         0,
         {text("config=")},
         runHotkeys},
        {text("stats"),
         text("stats [--file FILE] [--on yyyy-MM-dd]"),
         text("jumps, streak, time saved, and what is to be shown next"),
         0,
         0,
         {text("file="), text("on=")},
         runStats},
        {text("intent"),
         text("intent --transcript TEXT FILE"),
         text("a language model's answer about a phrase as target and steps"),
         1,
         1,
         {text("transcript=")},
         runIntent},
        {text("script enumerate"),
         text("script enumerate --bundle ID"),
         text("the script that lists a browser's tabs"),
         0,
         0,
         {text("bundle=")},
         runScriptEnumerate},
        {text("script activate"),
         text("script activate --bundle ID --window W --tab T"),
         text("the script that selects the tab at a place"),
         0,
         0,
         {text("bundle="), text("window="), text("tab=")},
         runScriptActivate},
        {text("script relocate"),
         text("script relocate --bundle ID --window W --tab T --url U --title S"),
         text("the script that finds a tab again and selects it"),
         0,
         0,
         {text("bundle="), text("window="), text("tab="), text("url="), text("title=")},
         runScriptRelocate},
        {text("script cycle"),
         text("script cycle --bundle ID --direction 0|1"),
         text("the script that steps to the next (0) or previous (1) window"),
         0,
         0,
         {text("bundle="), text("direction=")},
         runScriptCycle},
        {text("tabs-output"),
         text("tabs-output --bundle ID FILE"),
         text("the tabs that a listing script's output tells of"),
         1,
         1,
         {text("bundle=")},
         runTabsOutput},
        {text("parse"),
         text("parse PHRASE"),
         text("a spoken phrase as a target and steps, by the tables of words alone"),
         1,
         1,
         {},
         runParse},
        {text("understand"),
         text("understand PHRASE [--aliases FILE] [--targets FILE [--uses FILE]]"),
         text("what a spoken phrase means; with targets, where it leads"),
         1,
         1,
         {text("aliases="), text("targets="), text("uses=")},
         runUnderstand},
        {text("route"),
         text("route PHRASE"),
         text("the messaging application, person and message of a spoken phrase"),
         1,
         1,
         {},
         runRoute},
        {text("titles-match"),
         text("titles-match A B"),
         text("whether two titles name the same window"),
         2,
         2,
         {},
         runTitlesMatch},
        {text("rank"),
         text("rank PHRASE --targets FILE [--uses FILE] [--limit N]"),
         text("how well a phrase names each of the targets, best first"),
         1,
         1,
         {text("targets="), text("uses="), text("limit=")},
         runRank},
        {text("replay"),
         text("replay FILE"),
         text("runs a trace on the simulated desktop"),
         1,
         1,
         {},
         runReplay},
        {text("doctor"),
         text("doctor [--json]"),
         text("what works on this machine and what does not"),
         0,
         0,
         {text("json")},
         runDoctor},
        {text("browser install"),
         text("browser install"),
         text("lets the browsers of this user reach Skipnest through its extension"),
         0,
         0,
         {},
         runBrowserInstall},
        {text("browser remove"),
         text("browser remove"),
         text("takes that back"),
         0,
         0,
         {},
         runBrowserRemove},
        {text("browser status"),
         text("browser status"),
         text("which browsers are connected, and what the others need"),
         0,
         0,
         {},
         runBrowserStatus},
        {text("jump"),
         text("jump NAME"),
         text("opens a shortcut's target or brings it to the front"),
         1,
         1,
         {},
         runJump},
        {text("hide"),
         text("hide NAME"),
         text("hides a shortcut's application"),
         1,
         1,
         {},
         runHide},
        {text("add"),
         text("add PATH [--key COMBO] [--hide-key COMBO]"),
         text("a new shortcut for an application, file or folder"),
         1,
         1,
         {text("key="), text("hide-key=")},
         runAdd},
        {text("remove"), text("remove NAME"), text("removes a shortcut"), 1, 1, {}, runRemove},
        {text("list"), text("list"), text("all shortcuts in order"), 0, 0, {}, runList},
        {text("export"),
         text("export [FILE]"),
         text("the whole configuration, to a file or standard output"),
         0,
         1,
         {},
         runExport},
        {text("import"),
         text("import FILE"),
         text("takes over the shortcuts of an export; known ones are updated"),
         1,
         1,
         {},
         runImport},
        {text("confirm"),
         text("confirm NAME"),
         text("lets an imported application run that lies outside the usual folders"),
         1,
         1,
         {},
         runConfirm},
        {text("popover"),
         text("popover [--add FILE]"),
         text("opens or closes the popover, or opens it on a new shortcut"),
         0,
         0,
         {text("add=")},
         runPopover},
        {text("restore"),
         text("restore [DATE]"),
         text("puts back the newest daily snapshot, or that of a day (yyyy-MM-dd)"),
         0,
         1,
         {},
         runRestore},
        {text("next-window"),
         text("next-window"),
         text("minimises the first window of the application in front"),
         0,
         0,
         {},
         runNextWindow},
        {text("previous-window"),
         text("previous-window"),
         text("brings the last one back"),
         0,
         0,
         {},
         runPreviousWindow},
        {text("switcher"),
         text("switcher [NAME]"),
         text("shows the windows of a shortcut's application, or of the one in front, to choose"),
         0,
         1,
         {},
         runSwitcher},
        {text("status"),
         text("status"),
         text("what the running agent is doing"),
         0,
         0,
         {},
         runStatus},
        {text("quit"), text("quit"), text("ends the running agent"), 0, 0, {}, runQuit},
    };
    return table;
}

ExitStatus runCommandLine(const QStringList& words, const Context& context) {
    const QString& first = words.first();
    if (first == u"help" || first == u"--help" || first == u"-h")
        return help(words.mid(1));
    if (first == u"--version") {
        write(stdout, u"skipnest " % QCoreApplication::applicationVersion() % u'\n');
        return ExitStatus::done;
    }
    const QString firstTwo = words.mid(0, 2).join(u' ');
    for (const Subcommand& subcommand : subcommands()) {
        if (subcommand.name == first)
            return dispatch(subcommand, words.mid(1), context);
        if (subcommand.name == firstTwo)
            return dispatch(subcommand, words.mid(2), context);
    }
    return wrongUsage(u"there is no subcommand \"" % first % u"\"");
}

void printJson(const QJsonValue& value) {
    // QJsonDocument takes objects and arrays only; a bare value is printed from inside an array.
    QByteArray bytes = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    bytes = bytes.mid(1, bytes.size() - 2);
    printText(QString::fromUtf8(bytes));
}

void printText(const QString& text) {
    write(stdout, text % u'\n');
}

ExitStatus fail(const QString& message) {
    write(stderr, u"skipnest: " % message % u'\n');
    return ExitStatus::failed;
}

std::optional<QByteArray> readInput(const QString& path, qint64 limit) {
    QFile file(path);
    const bool opened =
        path == u"-" ? file.open(stdin, QFile::ReadOnly) : file.open(QFile::ReadOnly);
    if (!opened) {
        (void)fail(path % u": " % file.errorString());
        return std::nullopt;
    }
    QByteArray bytes = file.read(limit + 1);
    if (file.error() != QFile::NoError) {
        (void)fail(path % u": " % file.errorString());
        return std::nullopt;
    }
    if (bytes.size() > limit) {
        (void)fail(QStringLiteral("%1: more than %2 bytes").arg(path).arg(limit));
        return std::nullopt;
    }
    return bytes;
}

} // namespace skipnest::cli
