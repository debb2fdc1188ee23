// SPDX-License-Identifier: Apache-2.0
#include "tests/x11workspace/Desk.h"

#include <QFile>

#include <cstring>

namespace skipnest::tests {
namespace {

std::unique_ptr<QProcess> windowManager;

} // namespace

ToyWindows::ToyWindows() : connection_(xcb_connect(nullptr, nullptr)) {}

ToyWindows::~ToyWindows() {
    xcb_disconnect(connection_);
}

xcb_atom_t ToyWindows::atom(const char* name) {
    const linuxdesktop::XcbPtr<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection_,
        xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(std::strlen(name)), name),
        nullptr));
    return reply->atom;
}

xcb_window_t ToyWindows::show(const Look& look) {
    const xcb_window_t window = xcb_generate_id(connection_);
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window, screen->root, 10, 10, 200, 100, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    const auto set = [&](xcb_atom_t property, xcb_atom_t type, std::uint8_t format,
                         std::size_t length, const void* data) {
        xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, property, type, format,
                            static_cast<std::uint32_t>(length), data);
    };
    QByteArray name("toy");
    name.append('\0').append(look.windowClass).append('\0');
    set(XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8, std::size_t(name.size()), name.constData());
    if (look.pid != 0)
        set(atom("_NET_WM_PID"), XCB_ATOM_CARDINAL, 32, 1, &look.pid);
    if (look.machine != nullptr)
        set(XCB_ATOM_WM_CLIENT_MACHINE, XCB_ATOM_STRING, 8, std::strlen(look.machine),
            look.machine);
    const auto setText = [&](xcb_atom_t property, xcb_atom_t type, const QByteArray& text) {
        if (!text.isEmpty())
            set(property, type, 8, std::size_t(text.size()), text.constData());
    };
    setText(atom("_NET_WM_NAME"), atom("UTF8_STRING"), look.title);
    setText(XCB_ATOM_WM_NAME, XCB_ATOM_STRING, look.plainTitle);
    if (look.leader != XCB_WINDOW_NONE)
        set(XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, 32, 1, &look.leader);
    const auto setAtom = [&](const char* property, const char* value) {
        if (value == nullptr)
            return;
        const xcb_atom_t named = atom(value);
        set(atom(property), XCB_ATOM_ATOM, 32, 1, &named);
    };
    setAtom("_NET_WM_WINDOW_TYPE", look.type);
    setAtom("_NET_WM_STATE", look.state);
    xcb_map_window(connection_, window);
    xcb_flush(connection_);
    return window;
}

void startWindowManager() {
    windowManager = std::make_unique<QProcess>();
    windowManager->setStandardErrorFile(QProcess::nullDevice());
    QStringList options;
    if (std::strcmp(WINDOW_MANAGER, "xfwm4") == 0)
        options.append(QStringLiteral("--compositor=off"));
    windowManager->start(QStringLiteral(WINDOW_MANAGER), options);
}

void killWindowManager() {
    if (!windowManager)
        return;
    windowManager->kill();
    windowManager->waitForFinished();
    windowManager.reset();
}

bool windowManagerWorks() {
    return windowManager && windowManager->waitForStarted();
}

void Desk::SetUp() {
    ports = std::make_unique<linuxdesktop::X11ApplicationPorts>(*display, scheduler, executor);
    ASSERT_TRUE(waitFor([&] {
        return ports->workspace.availability().state == platform::Availability::State::available &&
               ports->windows.supports("_NET_CURRENT_DESKTOP") &&
               display->requestTime() != XCB_CURRENT_TIME;
    }));
    ASSERT_TRUE(runTool("wmctrl -n 4"));
    // Only a window manager that carries out requests has finished starting: openbox announces
    // itself and then still loses what it is asked, windows to be mapped included. So it is asked
    // until it does it.
    for (const char* desktop : {"1", "0"}) {
        ASSERT_TRUE(waitFor([&] {
            (void)runTool(QByteArray("wmctrl -s ") + desktop);
            ports->windows.settle();
            return ports->windows.currentDesktop() == std::uint32_t(*desktop - '0');
        }));
    }
}

void Desk::TearDown() {
    EXPECT_TRUE(waitFor([&] {
        for (const platform::RunningApplication& running : ports->workspace.runningApplications())
            (void)ports->control.terminate(running.pid, platform::Termination::forced);
        return ports->workspace.runningApplications().empty();
    }));
    for (const auto& process : spawned)
        process->waitForFinished();
}

QString Desk::path(const char* name) {
    return QFile::decodeName(qgetenv("XDG_DATA_HOME")) +
           QStringLiteral("/applications/%1.desktop").arg(QLatin1String(name));
}

bool Desk::openAndWait(const char* name) {
    ports->workspace.openApplication(
        path(name), [name](const platform::Outcome& outcome) { EXPECT_TRUE(outcome) << name; });
    return waitFor([&] { return front() == name; });
}

void Desk::spawn(const char* commandLine) {
    QStringList words = QProcess::splitCommand(QString::fromLatin1(commandLine));
    const QString program = words.takeFirst();
    spawned.push_back(std::make_unique<QProcess>());
    spawned.back()->start(program, words);
}

std::string Desk::front() const {
    const auto front = ports->workspace.frontmostApplication();
    return front ? front->bundleIdentifier.toStdString() : std::string();
}

const linuxdesktop::X11Application* Desk::application(const char* name) {
    ports->applications.update();
    return ports->applications.withBundleIdentifier(QString::fromLatin1(name));
}

std::size_t Desk::windowCount(const char* name) {
    const auto* found = application(name);
    return found == nullptr ? 0 : found->windows.size();
}

platform::ProcessIdentifier Desk::pid(const char* name) {
    const auto* found = application(name);
    return found == nullptr ? platform::ProcessIdentifier{} : found->pid;
}

void Desk::moveToDesktop(xcb_window_t window, int desktop) {
    ASSERT_TRUE(runTool(
        QStringLiteral("wmctrl -i -r %1 -t %2").arg(window).arg(desktop).toLatin1().constData()));
    ASSERT_TRUE(waitFor([&] {
        ports->windows.settle();
        const auto* known = ports->windows.find(window);
        return known != nullptr && known->desktop == std::uint32_t(desktop);
    }));
}

} // namespace skipnest::tests
