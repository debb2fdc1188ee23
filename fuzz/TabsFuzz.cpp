// SPDX-License-Identifier: Apache-2.0
#include "platform/AppleScript.h"
#include "switcher/BrowserTabs.h"

#include <QStringBuilder>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

using skipnest::switcher::BrowserTabs;

void require(bool holds) {
    if (!holds)
        std::abort();
}

QString written(const BrowserTabs::BrowserTab& tab) {
    return QString::number(tab.windowIndex) % QChar(1) % QString::number(tab.tabIndex) % QChar(1) %
           tab.title % QChar(1) % (tab.active ? u'1' : u'0') % QChar(1) % tab.url % u'\n';
}

// The text between the quotes after `before`, up to a quote that no backslash precedes, unescaped.
QString literalAfter(const QString& script, const QString& before) {
    const qsizetype found = script.indexOf(before);
    require(found >= 0);
    QString text;
    for (qsizetype i = found + before.size();; ++i) {
        require(i < script.size());
        if (script[i] == u'"')
            return text;
        if (script[i] == u'\\')
            require(++i < script.size());
        text += script[i];
    }
}

} // namespace

// What a browser answers. A tab that was read reads the same when written again, and its texts
// stand in the script that looks for it as they are.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString output =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto tabs = BrowserTabs::parse(output);
    QString again;
    for (const auto& tab : tabs) {
        again += written(tab);
        const auto script =
            BrowserTabs::relocateScript(BrowserTabs::Dialect::safari, QStringLiteral("b"), tab);
        require(script.has_value());
        require(literalAfter(*script, QStringLiteral("set tURL to \"")) == tab.url);
        require(script->contains(u"set tTitle to \"" %
                                 skipnest::platform::escapedForAppleScript(tab.title) % u"\"\n"));
    }
    require(BrowserTabs::parse(again) == tabs);
    return 0;
}
