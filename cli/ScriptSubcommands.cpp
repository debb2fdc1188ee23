// SPDX-License-Identifier: Apache-2.0
#include "cli/Subcommands.h"

#include "hotkeys/WindowCycler.h"
#include "switcher/AppWindows.h"
#include "switcher/BrowserTabs.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QStringBuilder>

namespace skipnest::cli {

using switcher::BrowserTabs;
using Dialect = BrowserTabs::Dialect;

namespace {

// Far more than the titles and addresses of ten thousand tabs.
constexpr qint64 largestOutput = 64 << 20;

ExitStatus missing(const char* option) {
    (void)fail(u"--" % QString::fromLatin1(option) % u" is missing or not what it should be");
    return ExitStatus::wrongUsage;
}

ExitStatus noBrowser(const QString& bundle) {
    return fail(u"\"" % bundle % u"\" is no browser whose scripts are known");
}

std::optional<std::int64_t> number(const Arguments& arguments, const QString& option) {
    bool fits = false;
    const qlonglong value = arguments.value(option).value_or(QString()).toLongLong(&fits);
    return fits ? std::optional<std::int64_t>(value) : std::nullopt;
}

// The tab that the options name; prints what is missing.
std::optional<BrowserTabs::BrowserTab> tabNumbers(const Arguments& arguments) {
    const auto window = number(arguments, QStringLiteral("window"));
    const auto tab = number(arguments, QStringLiteral("tab"));
    if (!window || !tab) {
        (void)missing(window ? "tab" : "window");
        return std::nullopt;
    }
    BrowserTabs::BrowserTab found;
    found.windowIndex = *window;
    found.tabIndex = *tab;
    return found;
}

} // namespace

ExitStatus runScriptEnumerate(const Arguments& arguments, const Context&) {
    const auto bundle = arguments.value(QStringLiteral("bundle"));
    if (!bundle)
        return missing("bundle");
    const auto dialect = BrowserTabs::knownDialect(*bundle);
    if (!dialect)
        return noBrowser(*bundle);
    printText(BrowserTabs::enumerateScript(*dialect, *bundle));
    return ExitStatus::done;
}

ExitStatus runScriptActivate(const Arguments& arguments, const Context&) {
    const auto bundle = arguments.value(QStringLiteral("bundle"));
    if (!bundle)
        return missing("bundle");
    const auto tab = tabNumbers(arguments);
    if (!tab)
        return ExitStatus::wrongUsage;
    const auto dialect = BrowserTabs::knownDialect(*bundle);
    if (!dialect)
        return noBrowser(*bundle);
    printText(BrowserTabs::activateScript(*dialect, *bundle, tab->windowIndex, tab->tabIndex));
    return ExitStatus::done;
}

ExitStatus runScriptRelocate(const Arguments& arguments, const Context&) {
    const auto bundle = arguments.value(QStringLiteral("bundle"));
    const auto url = arguments.value(QStringLiteral("url"));
    const auto title = arguments.value(QStringLiteral("title"));
    if (!bundle || !url || !title)
        return missing(!bundle ? "bundle" : !url ? "url" : "title");
    auto tab = tabNumbers(arguments);
    if (!tab)
        return ExitStatus::wrongUsage;
    const auto dialect = BrowserTabs::knownDialect(*bundle);
    if (!dialect)
        return noBrowser(*bundle);
    tab->url = *url;
    tab->title = *title;
    const auto script = BrowserTabs::relocateScript(*dialect, *bundle, *tab);
    if (!script)
        return fail(u"tabs of \"" % *bundle % u"\" are not looked for again");
    printText(*script);
    return ExitStatus::done;
}

ExitStatus runScriptCycle(const Arguments& arguments, const Context&) {
    using platform::CycleDirection;
    const auto bundle = arguments.value(QStringLiteral("bundle"));
    if (!bundle)
        return missing("bundle");
    const auto direction = arguments.value(QStringLiteral("direction"));
    if (direction != QStringLiteral("0") && direction != QStringLiteral("1"))
        return missing("direction");
    printText(hotkeys::WindowCycler::script(
        *bundle, *direction == u"0" ? CycleDirection::next : CycleDirection::previous));
    return ExitStatus::done;
}

ExitStatus runTabsOutput(const Arguments& arguments, const Context&) {
    // All dialects answer in one form: whose answer it is does not matter, yet has to be said.
    if (!arguments.value(QStringLiteral("bundle")))
        return missing("bundle");
    const auto output = readInput(arguments.positional.first(), largestOutput);
    if (!output)
        return ExitStatus::failed;
    QJsonArray tabs;
    for (const auto& tab : BrowserTabs::parse(QString::fromUtf8(*output)))
        tabs.append(QJsonObject{{QStringLiteral("windowIndex"), qint64{tab.windowIndex}},
                                {QStringLiteral("tabIndex"), qint64{tab.tabIndex}},
                                {QStringLiteral("title"), tab.title},
                                {QStringLiteral("active"), tab.active},
                                {QStringLiteral("url"), tab.url}});
    printJson(tabs);
    return ExitStatus::done;
}

ExitStatus runTitlesMatch(const Arguments& arguments, const Context&) {
    printJson(switcher::titlesMatch(arguments.positional[0], arguments.positional[1]));
    return ExitStatus::done;
}

} // namespace skipnest::cli
