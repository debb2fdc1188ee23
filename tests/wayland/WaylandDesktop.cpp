// SPDX-License-Identifier: Apache-2.0
#include "tests/wayland/WaylandDesktop.h"

#include "tests/e2e/Agent.h"
#include "tests/e2e/Waiting.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStandardPaths>

#include <grp.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace skipnest::waylandtest {
namespace {

constexpr uid_t nobody = 65534;

constexpr const char* swaySettings = "xwayland disable\n"
                                     "focus_on_window_activation focus\n"
                                     "output * resolution 800x600\n";

bool writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

void collect(const QJsonObject& node, const QString& appId, WaylandDesktop::Windows& found) {
    if (node.value(u"app_id").toString() == appId) {
        ++found.count;
        found.focused = found.focused || node.value(u"focused").toBool();
    }
    for (const char* children : {"nodes", "floating_nodes"}) {
        const QJsonArray nodes = node.value(QLatin1String(children)).toArray();
        for (const QJsonValue& child : nodes)
            collect(child.toObject(), appId, found);
    }
}

} // namespace

WaylandDesktop* WaylandDesktop::current_ = nullptr;

QStringList WaylandDesktop::missingPrograms() {
    QStringList missing;
    for (const char* program : {"sway", "swaymsg", "foot", "dbus-daemon"}) {
        if (QStandardPaths::findExecutable(QString::fromLatin1(program)).isEmpty())
            missing.append(QString::fromLatin1(program));
    }
    return missing;
}

WaylandDesktop::WaylandDesktop() {
    current_ = this;
    e2e::adoptOrphans();
    if (!becomeOrdinaryUser()) {
        failure_ = QStringLiteral("cannot become an ordinary user");
        return;
    }
    setUpEnvironment();
    if (!startBus())
        failure_ = QStringLiteral("the session bus did not start");
    else if (!startSway())
        failure_ = QStringLiteral("sway did not start");
}

WaylandDesktop::~WaylandDesktop() {
    sway_.end();
    bus_.end();
    e2e::endStrays();
    current_ = nullptr;
}

bool WaylandDesktop::becomeOrdinaryUser() {
    if (e2e::Agent::missing().isEmpty()) {
        QFile::copy(e2e::Agent::binary(), path(QStringLiteral("skipnest")));
        // Its other half lies beside it.
        QFile::copy(e2e::Agent::binary() + QStringLiteral("-agent"),
                    path(QStringLiteral("skipnest-agent")));
    }
    if (::geteuid() != 0)
        return true;
    const QByteArray folder = QFile::encodeName(folder_.path());
    const bool became = ::chown(folder.constData(), nobody, nobody) == 0 &&
                        ::chdir(folder.constData()) == 0 && ::setgroups(0, nullptr) == 0 &&
                        ::setresgid(nobody, nobody, nobody) == 0 &&
                        ::setresuid(nobody, nobody, nobody) == 0;
    ::prctl(PR_SET_DUMPABLE, 1); // else /proc/self stays root's
    return became;
}

void WaylandDesktop::setUpEnvironment() {
    // All of it: programs of the session inherit nothing else.
    const std::pair<const char*, QString> variables[] = {
        {"PATH", qEnvironmentVariable("PATH")},
        {"LANG", QStringLiteral("C.UTF-8")},
        {"SHELL", QStringLiteral("/bin/sh")}, // that of nobody ends at once, and foot with it
        {"HOME", path(QStringLiteral("home"))},
        {"XDG_RUNTIME_DIR", path(QStringLiteral("run"))},
        {"XDG_CONFIG_HOME", path(QStringLiteral("config"))},
        {"XDG_STATE_HOME", path(QStringLiteral("state"))},
        {"XDG_DATA_HOME", path(QStringLiteral("data"))},
        {"XDG_CACHE_HOME", path(QStringLiteral("cache"))},
        {"XDG_SESSION_TYPE", QStringLiteral("wayland")},
        {"SWAYSOCK", path(QStringLiteral("run/sway.sock"))},
        {"WLR_BACKENDS", QStringLiteral("headless")},
        {"WLR_LIBINPUT_NO_DEVICES", QStringLiteral("1")},
        {"WLR_RENDERER", QStringLiteral("pixman")},
    };
    for (const char* inherited : {"DISPLAY", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS",
                                  "XDG_ACTIVATION_TOKEN", "QT_QPA_PLATFORM"})
        qunsetenv(inherited);
    for (const auto& [name, value] : variables) {
        qputenv(name, value.toUtf8());
        environment_.append(QString::fromLatin1(name) + u'=' + value);
    }
    for (const char* name : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "TSAN_OPTIONS"}) {
        if (qEnvironmentVariableIsSet(name))
            environment_.append(
                QStringLiteral("%1=%2").arg(QString::fromLatin1(name), qEnvironmentVariable(name)));
    }
    for (const char* name : {"home", "run", "config", "state", "data/applications", "cache"})
        QDir().mkpath(path(QString::fromLatin1(name)));
    QFile::setPermissions(path(QStringLiteral("run")),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

bool WaylandDesktop::startBus() {
    const QString address = QStringLiteral("unix:path=") + path(QStringLiteral("run/bus"));
    bus_ = start({QStringLiteral("dbus-daemon"), QStringLiteral("--session"),
                  QStringLiteral("--nofork"), QStringLiteral("--address=") + address});
    environment_.append(QStringLiteral("DBUS_SESSION_BUS_ADDRESS=") + address);
    qputenv("DBUS_SESSION_BUS_ADDRESS", address.toUtf8());
    return e2e::eventually([this] { return QFile::exists(path(QStringLiteral("run/bus"))); });
}

bool WaylandDesktop::startSway() {
    if (!writeFile(path(QStringLiteral("sway.conf")), swaySettings))
        return false;
    sway_ =
        start({QStringLiteral("sway"), QStringLiteral("-c"), path(QStringLiteral("sway.conf"))});
    if (!e2e::eventually([this] {
            return run({QStringLiteral("swaymsg"), QStringLiteral("-t"),
                        QStringLiteral("get_tree")})
                       .exitCode == 0;
        }))
        return false;
    const QStringList sockets =
        QDir(path(QStringLiteral("run")))
            .entryList({QStringLiteral("wayland-?")}, QDir::System | QDir::Files);
    if (sockets.isEmpty())
        return false;
    environment_.append(QStringLiteral("WAYLAND_DISPLAY=") + sockets.first());
    qputenv("WAYLAND_DISPLAY", sockets.first().toUtf8());
    return true;
}

QString WaylandDesktop::agentBinary() const {
    const QString copy = path(QStringLiteral("skipnest"));
    return QFile::exists(copy) ? copy : QString();
}

QString WaylandDesktop::socketPath() const {
    return path(QStringLiteral("run/")) + qEnvironmentVariable("WAYLAND_DISPLAY");
}

QString WaylandDesktop::addEntry(const QString& id, const QString& name, const QString& exec,
                                 const QString& more) const {
    const QString entry = path(QStringLiteral("data/applications/%1.desktop").arg(id));
    const QString text = QStringLiteral("[Desktop Entry]\nType=Application\nName=%1\nExec=%2\n%3\n")
                             .arg(name, exec, more);
    return writeFile(entry, text.toUtf8()) ? entry : QString();
}

e2e::Finished WaylandDesktop::run(const QStringList& command) const {
    return e2e::run(command, environment_);
}

e2e::ChildProcess WaylandDesktop::start(const QStringList& command) const {
    return e2e::ChildProcess::start(
        {command,
         environment_,
         path(command.first().section(u'/', -1) + QStringLiteral(".out")),
         {},
         -1});
}

WaylandDesktop::Windows WaylandDesktop::windows(const QString& appId) const {
    const auto tree =
        run({QStringLiteral("swaymsg"), QStringLiteral("-t"), QStringLiteral("get_tree")});
    Windows found;
    collect(QJsonDocument::fromJson(tree.output).object(), appId, found);
    return found;
}

void WaylandDesktop::closeWindows(const QString& appId) const {
    (void)run({QStringLiteral("swaymsg"), QStringLiteral("[app_id=\"%1\"] kill").arg(appId)});
    (void)e2e::eventually([&] { return windows(appId).count == 0; });
}

bool comesTrue(const std::function<bool()>& condition) {
    return e2e::eventually([&condition] {
        QCoreApplication::processEvents();
        return condition();
    });
}

} // namespace skipnest::waylandtest
