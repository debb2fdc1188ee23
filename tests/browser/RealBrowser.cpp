// SPDX-License-Identifier: Apache-2.0
#include "tests/browser/RealBrowser.h"

#include "tests/e2e/Waiting.h"

#include <QDir>
#include <QFile>
#include <QJsonObject>
#include <QStandardPaths>

#include <unistd.h>

namespace skipnest::browser {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using e2e::eventually;

constexpr auto startPatience = 30s;

const QString extension = QStringLiteral(SKIPNEST_EXTENSION);

class Chromium final : public RealBrowser {
public:
    explicit Chromium(e2e::DesktopSession& session) : RealBrowser(session) {}

    bool open(const std::vector<QStringList>& windows) override {
        for (const QStringList& urls : windows) {
            const QStringList arguments = command(QStringList{u"--new-window"_s} + urls);
            const auto count = session_.windows().ofClass(u"Chromium"_s).size();
            if (process_.running())
                (void)session_.runToEnd(arguments);
            else
                process_ = session_.start(arguments);
            if (!eventually(
                    [&] { return session_.windows().ofClass(u"Chromium"_s).size() > count; },
                    startPatience))
                return false;
        }
        return true;
    }

private:
    [[nodiscard]] static QStringList command(const QStringList& more) {
        QStringList command{program(Kind::chromium),
                            u"--no-first-run"_s,
                            u"--no-default-browser-check"_s,
                            u"--disable-background-networking"_s,
                            u"--disable-component-update"_s,
                            u"--disable-default-apps"_s,
                            u"--disable-sync"_s,
                            u"--disable-gpu"_s,
                            u"--password-store=basic"_s,
                            u"--load-extension="_s + extension};
        if (geteuid() == 0)
            command.append(u"--no-sandbox"_s);
        return command + more;
    }
};

class Firefox final : public RealBrowser {
public:
    explicit Firefox(e2e::DesktopSession& session) : RealBrowser(session) {}

    bool open(const std::vector<QStringList>& windows) override {
        bool isFirst = !process_.running();
        if (isFirst && !start())
            return false;
        for (const QStringList& urls : windows) {
            QString kind = u"window"_s;
            for (const QString& url : urls) {
                // The first window is there already, on an empty page.
                if (!std::exchange(isFirst, false) && !openTab(kind))
                    return false;
                kind = u"tab"_s;
                remote_->call(u"WebDriver:Navigate"_s, {{u"url"_s, url}});
            }
        }
        return true;
    }

private:
    [[nodiscard]] bool start() {
        const QString profile = session_.home() + u"/firefox"_s;
        QDir().mkpath(profile);
        QFile settings(profile + u"/user.js"_s);
        if (!settings.open(QFile::WriteOnly))
            return false;
        settings.write("user_pref('marionette.port', 0);\n"
                       "user_pref('datareporting.policy.dataSubmissionEnabled', false);\n"
                       "user_pref('browser.shell.checkDefaultBrowser', false);\n"
                       "user_pref('browser.tabs.closeWindowWithLastTab', false);\n");
        settings.close();
        QFile::remove(profile + u"/MarionetteActivePort"_s);
        remote_ = std::make_unique<Marionette>();
        process_ = session_.start({program(Kind::firefox), u"--marionette"_s, u"--no-remote"_s,
                                   u"--profile"_s, profile, u"about:blank"_s});
        int port = 0;
        const auto hasPort = [&] {
            QFile file(profile + u"/MarionetteActivePort"_s);
            if (file.open(QFile::ReadOnly))
                port = file.readAll().trimmed().toInt();
            return port > 0;
        };
        if (!eventually(hasPort, startPatience) || !remote_->connect(port))
            return false;
        return !remote_->call(u"WebDriver:NewSession"_s).isUndefined() &&
               !remote_->call(u"Addon:Install"_s, {{u"path"_s, extension}, {u"temporary"_s, true}})
                    .isUndefined();
    }

    [[nodiscard]] bool openTab(const QString& kind) {
        const QJsonValue opened =
            remote_->call(u"WebDriver:NewWindow"_s, {{u"type"_s, kind}, {u"focus"_s, true}});
        const QString handle = opened.toObject().value(u"handle").toString();
        return !handle.isEmpty() && !remote_
                                         ->call(u"WebDriver:SwitchToWindow"_s,
                                                {{u"handle"_s, handle}, {u"focus"_s, true}})
                                         .isUndefined();
    }

    std::unique_ptr<Marionette> remote_;
};

} // namespace

QString RealBrowser::program(Kind kind) {
    const QStringList names = kind == Kind::chromium ? QStringList{u"chromium"_s}
                                                     : QStringList{u"firefox-esr"_s, u"firefox"_s};
    for (const QString& name : names) {
        if (const QString path = QStandardPaths::findExecutable(name); !path.isEmpty())
            return path;
    }
    return {};
}

QString RealBrowser::identifier(Kind kind) {
    return kind == Kind::chromium ? u"org.chromium.Chromium"_s : u"org.mozilla.firefox"_s;
}

std::unique_ptr<RealBrowser> RealBrowser::make(Kind kind, e2e::DesktopSession& session) {
    if (kind == Kind::chromium)
        return std::make_unique<Chromium>(session);
    return std::make_unique<Firefox>(session);
}

} // namespace skipnest::browser
