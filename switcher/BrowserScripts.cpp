// SPDX-License-Identifier: Apache-2.0
#include "switcher/BrowserTabs.h"

#include "platform/AppleScript.h"

#include <QStringBuilder>

namespace skipnest::switcher {

using namespace Qt::StringLiterals;
using Dialect = BrowserTabs::Dialect;
using platform::escapedForAppleScript;

namespace {

// The parts that are put together begin in the first column: AppleScript reads no indentation.

QString enumerateHead() {
    return uR"(tell application id "%1"
    set sep to (ASCII character 1)
    set nl to (ASCII character 10)
    set out to ""
    set wi to 0
)"_s;
}

QString enumerateBody(Dialect dialect) {
    switch (dialect) {
    case Dialect::chromium:
        return uR"(repeat with w in windows
    set wi to wi + 1
    set ati to 0
    try
        set ati to active tab index of w
    end try
    set ts to {}
    set us to {}
    try
        set ts to title of tabs of w
    end try
    try
        set us to URL of tabs of w
    end try
    repeat with i from 1 to (count of ts)
        set a to "0"
        if i is ati then set a to "1"
        set u to ""
        try
            set u to item i of us
        end try
        set out to out & wi & sep & i & sep & (item i of ts) & sep & a & sep & u & nl
    end repeat
end repeat)"_s;
    case Dialect::safari:
        return uR"(repeat with w in windows
    set wi to wi + 1
    try
        set cti to 0
        try
            set cti to index of current tab of w
        end try
        set ts to {}
        set us to {}
        try
            set ts to name of tabs of w
        end try
        try
            set us to URL of tabs of w
        end try
        repeat with i from 1 to (count of ts)
            set a to "0"
            if i is cti then set a to "1"
            set u to ""
            try
                set u to item i of us
            end try
            set out to out & wi & sep & i & sep & (item i of ts) & sep & a & sep & u & nl
        end repeat
    end try
end repeat)"_s;
    case Dialect::arc:
        return uR"(repeat with w in windows
    set wi to wi + 1
    set ti to 0
    repeat with t in tabs of w
        set ti to ti + 1
        set u to ""
        try
            set u to (URL of t)
        end try
        set out to out & wi & sep & ti & sep & (title of t) & sep & "0" & sep & u & nl
    end repeat
end repeat)"_s;
    }
    Q_UNREACHABLE();
}

QString enumerateTail() {
    return uR"(
    return out
end tell)"_s;
}

QString activateTemplate(Dialect dialect) {
    switch (dialect) {
    case Dialect::chromium:
        return uR"(tell application id "%1"
    set active tab index of window %2 to %3
    set index of window %2 to 1
    activate
end tell)"_s;
    case Dialect::safari:
        return uR"(tell application id "%1"
    set current tab of window %2 to tab %3 of window %2
    set index of window %2 to 1
    activate
end tell)"_s;
    case Dialect::arc:
        return uR"(tell application id "%1"
    try
        set active tab index of window %2 to %3
    end try
    try
        set index of window %2 to 1
    end try
    activate
end tell)"_s;
    }
    Q_UNREACHABLE();
}

// %1 identifier, %2 address, %3 title, %4 window, %5 tab, %6 what tabs call their titles, %7 how a
// tab is selected.
QString relocateTemplate() {
    return uR"(tell application id "%1"
    set tURL to "%2"
    set tTitle to "%3"
    set fw to 0
    set ft to 0
    try
        if tURL is not "" and (URL of tab %5 of window %4 as text) is tURL then
            set fw to %4
            set ft to %5
        end if
    end try
    if fw is 0 and tURL is not "" then
        set wi to 0
        repeat with w in windows
            set wi to wi + 1
            set us to {}
            try
                set us to URL of tabs of w
            end try
            repeat with i from 1 to (count of us)
                if (item i of us as text) is tURL then
                    set fw to wi
                    set ft to i
                    exit repeat
                end if
            end repeat
            if fw is not 0 then exit repeat
        end repeat
    end if
    if fw is 0 and tTitle is not "" then
        set wi to 0
        repeat with w in windows
            set wi to wi + 1
            set ts to {}
            try
                set ts to %6 of w
            end try
            repeat with i from 1 to (count of ts)
                if (item i of ts as text) is tTitle then
                    set fw to wi
                    set ft to i
                    exit repeat
                end if
            end repeat
            if fw is not 0 then exit repeat
        end repeat
    end if
    if fw is 0 then return "0"
%7
    set index of window fw to 1
    activate
    return "1"
end tell)"_s;
}

} // namespace

QString BrowserTabs::enumerateScript(Dialect dialect, const QString& bundleIdentifier) {
    return enumerateHead().arg(escapedForAppleScript(bundleIdentifier)) % enumerateBody(dialect) %
           enumerateTail();
}

QString BrowserTabs::activateScript(Dialect dialect, const QString& bundleIdentifier,
                                    std::int64_t window, std::int64_t tab) {
    return activateTemplate(dialect).arg(escapedForAppleScript(bundleIdentifier),
                                         QString::number(window), QString::number(tab));
}

std::optional<QString> BrowserTabs::relocateScript(Dialect dialect, const QString& bundleIdentifier,
                                                   const BrowserTab& tab) {
    if (dialect == Dialect::arc)
        return std::nullopt;
    const bool isSafari = dialect == Dialect::safari;
    // One arg() for all: a title that holds "%4" stays as it is.
    return relocateTemplate().arg(
        escapedForAppleScript(bundleIdentifier), escapedForAppleScript(tab.url),
        escapedForAppleScript(tab.title), QString::number(tab.windowIndex),
        QString::number(tab.tabIndex), isSafari ? u"name of tabs"_s : u"title of tabs"_s,
        isSafari ? u"set current tab of window fw to tab ft of window fw"_s
                 : u"set active tab index of window fw to ft"_s);
}

QString BrowserTabs::wrapped(const QString& script) {
    return platform::withAppleScriptTimeout(script);
}

} // namespace skipnest::switcher
