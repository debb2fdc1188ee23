// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/ApplicationIdentity.h"

#include "platform/linux/BundleIdentifiers.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace skipnest::linuxdesktop {
namespace {

// Programs that run other programs: their own name says nothing about the application.
constexpr std::array<std::string_view, 9> interpreters = {
    "python", "perl", "ruby", "node", "java", "gjs", "bash", "dash", "mono",
};

QString baseName(const QString& path) {
    return path.mid(path.lastIndexOf(u'/') + 1);
}

bool same(const QString& a, const QString& b) {
    return !a.isEmpty() && a.compare(b, Qt::CaseInsensitive) == 0;
}

bool isInterpreter(const QString& program) {
    return std::any_of(interpreters.begin(), interpreters.end(), [&](std::string_view name) {
        return program.startsWith(QLatin1String(name.data(), qsizetype(name.size())));
    });
}

// A web application's window: it shares class, process and executable with its browser.
bool isWebApplication(const WindowFacts& facts) {
    return facts.instance.startsWith(QStringLiteral("crx_"));
}

// What a window calls itself. `telling` names were given to this kind of window, the most telling
// first; `generic` is only the program's own name, which "xterm -class Notes" keeps as instance.
struct Names {
    QStringList telling;
    QString generic;

    [[nodiscard]] QStringList all() const {
        return generic.isEmpty() ? telling : telling + QStringList{generic};
    }
};

Names names(const WindowFacts& facts) {
    if (isWebApplication(facts))
        return {{facts.instance}, {}};
    if (facts.instance.isEmpty() || facts.windowClass.isEmpty() ||
        same(facts.instance, facts.windowClass)) {
        const QString& name = facts.windowClass.isEmpty() ? facts.instance : facts.windowClass;
        return {name.isEmpty() ? QStringList() : QStringList{name}, {}};
    }
    if (same(facts.instance, baseName(facts.executable)) ||
        same(facts.instance, baseName(facts.commandLine.value(0))))
        return {{facts.windowClass}, facts.instance};
    // An instance that is neither class nor program was chosen on purpose: "web.whatsapp.com" of
    // "Google-chrome". Without a process to compare with, the class is the safer guess.
    if (facts.executable.isEmpty())
        return {{facts.windowClass, facts.instance}, {}};
    return {{facts.instance, facts.windowClass}, {}};
}

// The window's process under the name that Exec would call it by, and the arguments behind it.
struct Invocation {
    QString program;
    QStringList arguments;
};

Invocation invocation(const WindowFacts& facts) {
    const QString program = baseName(facts.executable);
    if (!isInterpreter(program))
        return {program, facts.commandLine.mid(1)};
    // "python3 /usr/bin/meld": the script is the program.
    if (facts.commandLine.size() < 2 || facts.commandLine[1].startsWith(u'-'))
        return {};
    return {baseName(facts.commandLine[1]), facts.commandLine.mid(2)};
}

bool beginsWith(const QStringList& whole, const QStringList& beginning) {
    return whole.size() >= beginning.size() &&
           std::equal(beginning.begin(), beginning.end(), whole.begin());
}

bool launchedFrom(const WindowFacts& facts, const DesktopEntry& entry) {
    return !facts.launchedFrom.isEmpty() && facts.launchedFrom == entry.path;
}

const DesktopEntry* choose(const DesktopEntryIndex::Entries& entries, const WindowFacts& facts) {
    for (const DesktopEntry* entry : entries) {
        if (launchedFrom(facts, *entry))
            return entry;
    }
    return entries.empty() ? nullptr : entries.front();
}

// A terminal's window counts as the program that it was opened for.
const DesktopEntry* byTerminalLaunch(const WindowFacts& facts, const DesktopEntryIndex& index) {
    const DesktopEntry* entry = index.withPath(facts.launchedFrom);
    return entry != nullptr && entry->terminal ? entry : nullptr;
}

const DesktopEntry* byWmClass(const QStringList& told, const WindowFacts& facts,
                              const DesktopEntryIndex& index) {
    for (const QString& name : told) {
        if (const DesktopEntry* entry = choose(index.withWmClass(name), facts))
            return entry;
    }
    return nullptr;
}

const DesktopEntry* byId(const QStringList& told, const WindowFacts& facts,
                         const DesktopEntryIndex& index) {
    for (QString name : told) {
        if (const DesktopEntry* entry = choose(index.withId(name), facts))
            return entry;
        if (const DesktopEntry* entry = choose(index.withId(name.replace(u' ', u'-')), facts))
            return entry;
    }
    return nullptr;
}

// Of the entries that start this program, the one whose arguments the process has, the longest
// match first. An entry with a StartupWMClass would have been found by it, so it is another one.
const DesktopEntry* bestByArguments(const DesktopEntryIndex::Entries& entries,
                                    const WindowFacts& facts, const QStringList& arguments) {
    const DesktopEntry* best = nullptr;
    for (const DesktopEntry* entry : entries) {
        if (entry->terminal || !entry->startupWmClass.isEmpty() ||
            !beginsWith(arguments, entry->arguments))
            continue;
        if (launchedFrom(facts, *entry))
            return entry;
        if (best == nullptr || entry->arguments.size() > best->arguments.size())
            best = entry;
    }
    return best;
}

const DesktopEntry* byProgram(const WindowFacts& facts, const DesktopEntryIndex& index) {
    const Invocation process = invocation(facts);
    if (!process.program.isEmpty()) {
        const auto& entries = index.withProgram(process.program);
        if (const DesktopEntry* entry = bestByArguments(entries, facts, process.arguments))
            return entry;
    }
    // Wrapper scripts and servers: the process is called otherwise, the window is not.
    for (const QString& name : names(facts).all()) {
        const auto& entries = index.withProgram(name);
        if (const DesktopEntry* entry = bestByArguments(entries, facts, process.arguments))
            return entry;
    }
    return nullptr;
}

// An entry may announce a class that its program never had; it is believed to be wrong only where
// nobody else could be meant.
const DesktopEntry* byOnlyProgram(const WindowFacts& facts, const DesktopEntryIndex& index) {
    const Invocation process = invocation(facts);
    const auto& entries = index.withProgram(process.program);
    if (entries.size() == 1 && !entries.front()->terminal &&
        beginsWith(process.arguments, entries.front()->arguments))
        return entries.front();
    return nullptr;
}

const DesktopEntry* findEntry(const WindowFacts& facts, const DesktopEntryIndex& index) {
    if (const DesktopEntry* entry = choose(index.withId(facts.gtkApplicationId), facts))
        return entry;
    if (const DesktopEntry* entry = byTerminalLaunch(facts, index))
        return entry;
    const Names told = names(facts);
    if (const DesktopEntry* entry = byWmClass(told.telling, facts, index))
        return entry;
    if (const DesktopEntry* entry = byId(told.telling, facts, index))
        return entry;
    if (isWebApplication(facts))
        return nullptr;
    if (const DesktopEntry* entry = index.withPath(facts.launchedFrom))
        return entry;
    if (const DesktopEntry* entry = byProgram(facts, index))
        return entry;
    if (const DesktopEntry* entry = byWmClass({told.generic}, facts, index))
        return entry;
    if (const DesktopEntry* entry = byId({told.generic}, facts, index))
        return entry;
    return byOnlyProgram(facts, index);
}

} // namespace

ApplicationIdentity identify(const WindowFacts& facts, const DesktopEntryIndex& index) {
    if (const DesktopEntry* entry = findEntry(facts, index))
        return {entry->path, entry->path, bundleIdentifierOf(entry->id), entry->name};
    QString own = facts.gtkApplicationId;
    for (const QString& name : {isWebApplication(facts) ? facts.instance : facts.windowClass,
                                facts.instance, baseName(facts.executable)}) {
        if (own.isEmpty())
            own = name;
    }
    const QString label = facts.windowClass.isEmpty() ? own : facts.windowClass;
    return {own.toLower(), QString(), bundleIdentifierOf(own), label};
}

bool alsoBelongsTo(const WindowFacts& facts, const DesktopEntry& entry) {
    if (same(facts.gtkApplicationId, entry.id) || launchedFrom(facts, entry))
        return true;
    const QStringList told = names(facts).telling;
    if (told.isEmpty())
        return false;
    if (!entry.startupWmClass.isEmpty())
        return same(told.front(), entry.startupWmClass);
    return same(told.front(), entry.id) ||
           (!entry.terminal && entry.programs.contains(told.front(), Qt::CaseInsensitive) &&
            beginsWith(invocation(facts).arguments, entry.arguments));
}

} // namespace skipnest::linuxdesktop
