// SPDX-License-Identifier: Apache-2.0
#include "switcher/BrowserTabs.h"

#include "platform/Alerts.h"
#include "platform/Diagnostics.h"
#include "platform/Workspace.h"

#include <QStringBuilder>
#include <QUrl>

#include <algorithm>
#include <array>
#include <utility>

namespace skipnest::switcher {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using platform::Duration;
using platform::RunningApplication;
using platform::ScriptBudgetExceeded;
using platform::ScriptError;
using platform::ScriptText;
using Dialect = BrowserTabs::Dialect;

namespace {

// Shorter than the timeout around each script: the person stops waiting before the script does.
constexpr Duration listingBudget = 1500ms;
constexpr Duration activationBudget = 1500ms;
// Looks through every tab of every window.
constexpr Duration relocationBudget = 2500ms;

// The Apple event was not permitted.
constexpr int notPermitted = -1743;

constexpr auto dialects = std::to_array<std::pair<QStringView, Dialect>>({
    {u"com.google.Chrome", Dialect::chromium},
    {u"com.microsoft.edgemac", Dialect::chromium},
    {u"com.brave.Browser", Dialect::chromium},
    {u"com.apple.Safari", Dialect::safari},
    {u"company.thebrowser.Browser", Dialect::arc},
});

// Decimal digits after an optional sign; QString alone would take spaces around them too.
std::optional<std::int64_t> number(QStringView field) {
    const bool hasSign = field.startsWith(u'-') || field.startsWith(u'+');
    const QStringView digits = hasSign ? field.sliced(1) : field;
    const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
    if (!std::all_of(digits.begin(), digits.end(), isDigit))
        return std::nullopt;
    bool fits = false;
    const qlonglong value = field.toLongLong(&fits);
    return fits ? std::optional<std::int64_t>(value) : std::nullopt;
}

// For the log, which holds no address: a page without a title of its own is called by it.
QString loggedTitle(const BrowserTabs::BrowserTab& tab) {
    const auto isPartOf = [&tab](const QString& url) { return url.contains(tab.title); };
    const bool isAddress =
        tab.title.contains(u'/') &&
        (isPartOf(tab.url) || isPartOf(QUrl::fromPercentEncoding(tab.url.toUtf8())));
    return isAddress ? QUrl(tab.url).host() : tab.title;
}

std::optional<BrowserTabs::BrowserTab> parseLine(QStringView line) {
    const QList<QStringView> fields = line.split(QChar(1));
    if (fields.size() < 4)
        return std::nullopt;
    const auto window = number(fields[0]);
    const auto tab = number(fields[1]);
    if (!window || !tab)
        return std::nullopt;
    return BrowserTabs::BrowserTab{
        .windowIndex = *window,
        .tabIndex = *tab,
        .title = fields[2].toString(),
        .active = fields[3] == u"1",
        .url = fields.size() > 4 ? fields[4].toString() : QString(),
    };
}

} // namespace

BrowserTabs::BrowserTabs(const platform::Ports& ports) : ports_(ports) {}

std::optional<Dialect> BrowserTabs::knownDialect(const QString& bundleIdentifier) {
    const auto known = std::ranges::find(dialects, QStringView(bundleIdentifier),
                                         &std::pair<QStringView, Dialect>::first);
    return known == dialects.end() ? std::nullopt : std::optional(known->second);
}

std::optional<Dialect> BrowserTabs::dialect(const QString& bundleIdentifier) const {
    if (const auto known = knownDialect(bundleIdentifier))
        return known;
    if (ports_.scripts.furtherBrowsers().contains(bundleIdentifier))
        return Dialect::chromium;
    return std::nullopt;
}

bool BrowserTabs::isSupported(const RunningApplication& app) const {
    return dialect(app.bundleIdentifier).has_value();
}

std::vector<BrowserTabs::BrowserTab> BrowserTabs::parse(const QString& output) {
    std::vector<BrowserTab> tabs;
    for (const QStringView line : QStringView(output).split(u'\n', Qt::SkipEmptyParts)) {
        if (auto tab = parseLine(line))
            tabs.push_back(std::move(*tab));
    }
    return tabs;
}

std::optional<QString> BrowserTabs::run(platform::ScriptRequest request, Duration budget) {
    request.source = wrapped(request.source);
    const platform::ScriptAnswer answer = ports_.scripts.run(request, budget);
    if (const auto* text = std::get_if<ScriptText>(&answer)) {
        lastError_ = 0;
        return text->text;
    }
    if (const auto* error = std::get_if<ScriptError>(&answer)) {
        lastError_ = error->number;
        ports_.diagnostics.log(u"browsertabs: applescript error " % error->description);
        return std::nullopt;
    }
    const double seconds = std::chrono::duration<double>(budget).count();
    ports_.diagnostics.log(u"browsertabs: script exceeded " % QString::number(seconds) %
                           u"s budget — falling back");
    return std::nullopt;
}

std::vector<BrowserTabs::BrowserTab> BrowserTabs::enumerate(const RunningApplication& app,
                                                            Prompt prompt) {
    const QString& bundle = app.bundleIdentifier;
    const auto spoken = dialect(bundle);
    if (!spoken)
        return {};
    const auto output =
        run({enumerateScript(*spoken, bundle), platform::EnumerateTabs{bundle}}, listingBudget);
    if (!output) {
        ports_.diagnostics.log(u"browsertabs: enumerate failed for " % bundle % u" (err " %
                               QString::number(lastError_) % u')');
        if (prompt == Prompt::ifDenied && lastError_ == notPermitted)
            showConsentPrompt(app);
        return {};
    }
    std::vector<BrowserTab> tabs = parse(*output);
    ports_.diagnostics.log(u"browsertabs: " % bundle % u" → " % QString::number(tabs.size()) %
                           u" tab(s)");
    return tabs;
}

void BrowserTabs::activate(const BrowserTab& tab, const RunningApplication& app) {
    const QString& bundle = app.bundleIdentifier;
    const auto spoken = dialect(bundle);
    if (!spoken)
        return;
    const bool isKnowable = !tab.title.isEmpty() || !tab.url.isEmpty();
    if (const auto script = relocateScript(*spoken, bundle, tab); script && isKnowable) {
        const platform::RelocateTab meaning{bundle, tab.windowIndex, tab.tabIndex, tab.url,
                                            tab.title};
        if (run({*script, meaning}, relocationBudget) == u"1"_s)
            return;
        ports_.diagnostics.log(u"browsertabs: relocation missed '" % loggedTitle(tab) %
                               u"' — coordinate fallback w" % QString::number(tab.windowIndex) %
                               u" t" % QString::number(tab.tabIndex));
    }
    const auto selected = run({activateScript(*spoken, bundle, tab.windowIndex, tab.tabIndex),
                               platform::ActivateTab{bundle, tab.windowIndex, tab.tabIndex}},
                              activationBudget);
    ports_.diagnostics.log(u"browsertabs: activate '" % loggedTitle(tab) % u"' → " %
                           (selected ? u"OK"_s : u"FAIL"_s));
}

void BrowserTabs::showConsentPrompt(const RunningApplication& app) {
    if (std::exchange(consentPromptShown_, true))
        return;
    // These are not asked by Apple events: the system's settings have no switch for them.
    if (ports_.scripts.furtherBrowsers().contains(app.bundleIdentifier)) {
        if (guide_)
            guide_(app);
        return;
    }
    const QString name = app.name.isEmpty() ? u"your browser"_s : app.name;
    const platform::Alert alert{
        .message = u"Let Skipnest switch "_s % name % u" tabs",
        .informativeText =
            u"To cycle and search tabs, macOS needs your permission for Skipnest to control "_s %
            name % u".\n\nOpen System Settings → Privacy & Security → Automation, then turn on " %
            name % u" under Skipnest.",
        .buttons = {u"Open Automation Settings"_s, u"Later"_s},
    };
    ports_.alerts.show(alert, [workspace = &ports_.workspace](int button) {
        if (button != 0)
            return;
        workspace->openUrl(
            QUrl(u"x-apple.systempreferences:com.apple.preference.security?Privacy_Automation"_s),
            [](const platform::Outcome&) {});
    });
}

} // namespace skipnest::switcher
