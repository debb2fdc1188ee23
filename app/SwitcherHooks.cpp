// SPDX-License-Identifier: Apache-2.0
#include "app/SwitcherHooks.h"

#include "platform/Accessibility.h"
#include "platform/Diagnostics.h"
#include "platform/Workspace.h"
#include "switcher/SwitcherSearch.h"
#include "switcher/WindowGathering.h"

#include <QStringBuilder>

#include <algorithm>

namespace skipnest::app {

using namespace Qt::StringLiterals;
using platform::AccessibilityElement;
using platform::RunningApplication;
using switcher::SwitcherModel;
using switcher::WindowSwitcher;

namespace {

QString yesOrNo(bool value) {
    return value ? u"true"_s : u"false"_s;
}

QString valueText(const platform::AccessibilityValue& value) {
    struct Writer {
        QString operator()(bool flag) const { return yesOrNo(flag); }
        QString operator()(const QString& text) const { return u'\'' % text % u'\''; }
        QString operator()(const QPointF& point) const {
            return u"(%1, %2)"_s.arg(point.x()).arg(point.y());
        }
        QString operator()(const QSizeF& size) const {
            return u"%1 x %2"_s.arg(size.width()).arg(size.height());
        }
        QString operator()(const AccessibilityElement&) const { return u"an element"_s; }
        QString operator()(const std::vector<AccessibilityElement>& elements) const {
            return u"%1 element(s)"_s.arg(elements.size());
        }
    };
    return std::visit(Writer{}, value);
}

} // namespace

std::vector<DebugHooks::Hook> SwitcherHooks::hooks() {
    return {
        {u"switchtest"_s, [this](const QString&) { testBar(); }},
        {u"menuraise"_s, [this](const QString& title) { testMenuRaise(title); }},
        {u"tabsearchtest"_s, [this](const QString& query) { testTabSearch(query); }},
        {u"axdump"_s, [this](const QString&) { dumpFocus(); }},
    };
}

void SwitcherHooks::log(const QString& line) const {
    ports_.diagnostics.log(line);
}

std::optional<RunningApplication> SwitcherHooks::runningBrowser() const {
    const auto apps = ports_.workspace.runningApplications();
    const auto browser =
        std::ranges::find_if(apps, [this](const auto& app) { return tabs_.isSupported(app); });
    return browser == apps.end() ? std::nullopt : std::optional(*browser);
}

void SwitcherHooks::testBar() {
    const auto browser = runningBrowser();
    if (!browser)
        return log(u"SELFTEST: no browser runs"_s);
    using Mode = WindowSwitcher::Mode;
    auto answer = bar_.open(*browser, std::nullopt, Mode::tabsAllowed);
    if (answer == WindowSwitcher::Answer::declined)
        answer = bar_.open(*browser, std::nullopt, Mode::windowsOnly);
    const SwitcherModel::Content& content = bar_.model().content();
    const bool opened = answer == WindowSwitcher::Answer::taken && bar_.isOpen();
    log(u"SELFTEST: "_s % browser->name % u" opened=" % yesOrNo(opened) % u" windows=" %
        QString::number(content.windows.size()) % u" tabs=" % QString::number(content.totalTabs));
    bar_.dismiss();
    log(u"SELFTEST: closed="_s % yesOrNo(!bar_.isOpen()) % u" → " %
        (opened && !bar_.isOpen() ? u"OK"_s : u"FAIL"_s));
}

void SwitcherHooks::testMenuRaise(const QString& title) {
    const auto app = ports_.workspace.frontmostApplication();
    if (!app)
        return log(u"MENUTEST: no application is in front"_s);
    const auto items = windows_.windowMenuItems(*app);
    QString wanted = title;
    QStringList titles;
    for (const auto& item : items) {
        titles.append(u'\'' % item.title % u'\'');
        if (title.isEmpty() && !item.marked)
            wanted = item.title;
    }
    log(u"MENUTEST: "_s % app->name % u" has " % QString::number(items.size()) % u" item(s): " %
        titles.join(u", "));
    if (wanted.isEmpty())
        return log(u"MENUTEST: nothing to raise"_s);
    const bool raised = windows_.menuRaise(*app, wanted);
    log(u"MENUTEST: raise '"_s % wanted % u"' → " % (raised ? u"OK"_s : u"FAIL"_s));
}

void SwitcherHooks::testTabSearch(const QString& query) {
    const auto browser = runningBrowser();
    if (!browser)
        return log(u"TABSEARCH: no browser runs"_s);
    const auto tabs = tabs_.enumerate(*browser, switcher::BrowserTabs::Prompt::never);
    const auto hits =
        switcher::search(switcher::groupTabs(tabs), switcher::SessionKind::browser, query);
    log(u"TABSEARCH: "_s % browser->name % u" query='" % query % u"' tabs=" %
        QString::number(tabs.size()) % u" matches=" % QString::number(hits.size()));
    for (const auto& hit : hits)
        log(u"TABSEARCH: '"_s % hit.row.title % u"' at " % hit.row.domain);
}

void SwitcherHooks::dumpFocus() {
    const auto app = ports_.workspace.frontmostApplication();
    if (!app)
        return log(u"AXDUMP no application is in front"_s);
    platform::Accessibility& accessibility = ports_.accessibility;
    const AccessibilityElement application = accessibility.application(app->pid);
    AccessibilityElement focused = application;
    for (const auto& name : {u"AXFocusedUIElement"_s, u"AXFocusedWindow"_s}) {
        const auto value = accessibility.attribute(application, name);
        if (const auto* element = value ? std::get_if<AccessibilityElement>(&*value) : nullptr) {
            focused = *element;
            break;
        }
    }
    const auto role = accessibility.attribute(focused, u"AXRole"_s);
    log(u"AXDUMP "_s % app->name % u" role=" % (role ? valueText(*role) : u"unreadable"_s));
    for (const auto& name : {u"AXSubrole"_s, u"AXTitle"_s, u"AXDescription"_s, u"AXValue"_s,
                             u"AXSelectedText"_s, u"AXDocument"_s, u"AXWindowID"_s, u"AXPosition"_s,
                             u"AXSize"_s, u"AXMain"_s, u"AXMinimized"_s, u"AXChildren"_s}) {
        if (const auto value = accessibility.attribute(focused, name))
            log(u"AXDUMP "_s % name % u'=' % valueText(*value));
    }
}

} // namespace skipnest::app
