// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/X11Windows.h"

#include "platform/linux/ProcessFacts.h"
#include "platform/linux/X11UnmanagedWindows.h"

#include <QSysInfo>

#include <algorithm>

namespace skipnest::linuxdesktop {
namespace {

// In 4-byte units. Lists of windows and atoms, and names: more than any real one has.
constexpr std::uint32_t lengthLimit = 16 * 1024;

// Windows forgotten for good once this many are remembered for their order of use.
constexpr std::size_t focusOrderLimit = 1024;

constexpr std::uint32_t iconicState = 3;

using namespace std::chrono_literals;

// "No window" that lasts longer than this is no focus on its way but the desktop itself.
constexpr platform::Duration focusMovesWithin = 150ms;

std::vector<std::uint32_t> numbers(const xcb_get_property_reply_t& reply) {
    if (reply.format != 32)
        return {};
    const auto* data = static_cast<const std::uint32_t*>(xcb_get_property_value(&reply));
    return {data, data + reply.value_len};
}

std::uint32_t number(const xcb_get_property_reply_t& reply, std::uint32_t otherwise) {
    const auto found = numbers(reply);
    return found.empty() ? otherwise : found.front();
}

QByteArray bytes(const xcb_get_property_reply_t& reply) {
    if (reply.format != 8)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(&reply)),
            xcb_get_property_value_length(&reply)};
}

bool contains(const std::vector<std::uint32_t>& list, std::uint32_t value) {
    return std::find(list.begin(), list.end(), value) != list.end();
}

} // namespace

X11Windows::Atoms::Atoms(const X11Display& display)
    : clientList(display.atom("_NET_CLIENT_LIST")),
      stackingList(display.atom("_NET_CLIENT_LIST_STACKING")),
      activeWindow(display.atom("_NET_ACTIVE_WINDOW")),
      currentDesktop(display.atom("_NET_CURRENT_DESKTOP")),
      supportingCheck(display.atom("_NET_SUPPORTING_WM_CHECK")),
      supported(display.atom("_NET_SUPPORTED")),
      gtkApplicationId(display.atom("_GTK_APPLICATION_ID")), wmPid(display.atom("_NET_WM_PID")),
      wmDesktop(display.atom("_NET_WM_DESKTOP")), wmState(display.atom("_NET_WM_STATE")),
      wmWindowType(display.atom("_NET_WM_WINDOW_TYPE")),
      allowedActions(display.atom("_NET_WM_ALLOWED_ACTIONS")), icccmState(display.atom("WM_STATE")),
      clientMachine(XCB_ATOM_WM_CLIENT_MACHINE), protocols(display.atom("WM_PROTOCOLS")),
      stateHidden(display.atom("_NET_WM_STATE_HIDDEN")),
      actionMinimise(display.atom("_NET_WM_ACTION_MINIMIZE")),
      deleteWindow(display.atom("WM_DELETE_WINDOW")) {
    // Utility windows and toolboxes count: some programs have nothing else.
    for (const char* type : {"DESKTOP", "DOCK", "TOOLBAR", "MENU", "SPLASH", "DROPDOWN_MENU",
                             "POPUP_MENU", "TOOLTIP", "NOTIFICATION", "COMBO", "DND"})
        passiveTypes.push_back(
            display.atom((QByteArray("_NET_WM_WINDOW_TYPE_") + type).constData()));
    rootProperties = {supported, stackingList, activeWindow, currentDesktop};
    // The machine before the pid: it says whether the pid means anything here.
    windowProperties = {XCB_ATOM_WM_CLASS, gtkApplicationId, clientMachine, wmPid,
                        wmDesktop,         wmState,          icccmState,    wmWindowType,
                        allowedActions,    protocols};
}

X11Windows::X11Windows(X11Display& display, platform::Scheduler& scheduler)
    : display_(display), scheduler_(scheduler), atoms_(display),
      hostName_(QSysInfo::machineHostName().toUtf8()) {
    display_.addEventMask(display_.root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    events_ =
        display_.observeEvents([this](const xcb_generic_event_t& event) { handleEvent(event); });
    ask(display_.root(), atoms_.supportingCheck);
    settle();
}

X11Windows::~X11Windows() {
    for (const Question& question : questions_)
        xcb_discard_reply(display_.connection(), question.cookie.sequence);
}

void X11Windows::settle() {
    takeAnswers();
    if (!hasWindowManager())
        listWithoutManager();
    if (stackingStale_)
        updateStacking();
}

void X11Windows::takeAnswers() {
    while (!questions_.empty()) {
        const Question question = questions_.front();
        questions_.pop_front();
        const XcbPtr<xcb_get_property_reply_t> reply(
            xcb_get_property_reply(display_.connection(), question.cookie, nullptr));
        if (reply)
            answer(question, *reply);
        else if (question.window == manager_)
            setManager(XCB_WINDOW_NONE);
        else
            removeWindow(question.window);
    }
}

void X11Windows::relist() {
    ask(display_.root(), atoms_.supportingCheck);
    if (hasWindowManager())
        askRoot();
    settle();
}

const X11Window* X11Windows::find(xcb_window_t window) const {
    const auto found = windows_.find(window);
    return found == windows_.end() ? nullptr : &found->second;
}

bool X11Windows::supports(const char* atom) const {
    return hasWindowManager() && supported_.contains(display_.atom(atom));
}

bool X11Windows::isHidden(const X11Window& window) const {
    // Some window managers make windows of other desktops iconic as well; those that know the newer
    // state say with it what the person minimised.
    return supported_.contains(atoms_.stateHidden) ? window.stateHidden : window.iconic;
}

bool X11Windows::needsDesktop(std::uint32_t desktop) const {
    if (desktop == X11Window::allDesktops)
        return false;
    return desktop != currentDesktop_ ||
           (requestedDesktop_ != X11Window::allDesktops && requestedDesktop_ != currentDesktop_);
}

void X11Windows::noteRequestedActive(xcb_window_t window) {
    requestedActive_ = window;
    requestedActiveAt_ = scheduler_.now();
}

xcb_window_t X11Windows::requestedActive() const {
    return scheduler_.now() - requestedActiveAt_ < focusMovesWithin ? requestedActive_
                                                                    : xcb_window_t{XCB_WINDOW_NONE};
}

platform::Observation X11Windows::observeChanges(std::function<void()> changed) {
    return changed_.add(std::move(changed));
}

void X11Windows::handleEvent(const xcb_generic_event_t& event) {
    switch (event.response_type & 0x7F) {
    case XCB_PROPERTY_NOTIFY: {
        const auto& notify = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (notify.window == display_.root()) {
            if (notify.atom == atoms_.supportingCheck ||
                contains(atoms_.rootProperties, notify.atom))
                ask(notify.window, notify.atom);
            // Not every window manager keeps the stacking list; the plain one changes as well.
            else if (notify.atom == atoms_.clientList)
                ask(notify.window, atoms_.stackingList);
        } else if (contains(atoms_.windowProperties, notify.atom) &&
                   windows_.contains(notify.window)) {
            ask(notify.window, notify.atom);
        }
        break;
    }
    case XCB_DESTROY_NOTIFY: {
        const auto& notify = reinterpret_cast<const xcb_destroy_notify_event_t&>(event);
        if (notify.window == manager_) {
            setManager(XCB_WINDOW_NONE);
            ask(display_.root(), atoms_.supportingCheck);
        }
        break;
    }
    default:
        break;
    }
}

void X11Windows::ask(xcb_window_t window, xcb_atom_t property) {
    questions_.push_back({window, property,
                          xcb_get_property(display_.connection(), 0, window, property,
                                           XCB_GET_PROPERTY_TYPE_ANY, 0, lengthLimit)});
    settleLater();
}

void X11Windows::askRoot() {
    for (const xcb_atom_t property : atoms_.rootProperties)
        ask(display_.root(), property);
}

void X11Windows::settleLater() {
    if (settlePosted_)
        return;
    settlePosted_ = true;
    scheduler_.post([this, alive = std::weak_ptr(alive_)] {
        if (alive.expired())
            return;
        settlePosted_ = false;
        settle();
        changed_.notify();
    });
}

void X11Windows::answer(const Question& question, const xcb_get_property_reply_t& reply) {
    if (question.window == display_.root()) {
        answerRoot(question.property, reply);
        return;
    }
    if (question.property == atoms_.supportingCheck) {
        // A window manager that was killed leaves its name on the root, and the number of its
        // window may belong to somebody else by now: the window must name itself.
        const bool named = number(reply, XCB_WINDOW_NONE) == question.window;
        setManager(named ? question.window : xcb_window_t{XCB_WINDOW_NONE});
        return;
    }
    const auto found = windows_.find(question.window);
    if (found != windows_.end())
        answerWindow(found->second, question.property, reply);
}

void X11Windows::answerRoot(xcb_atom_t property, const xcb_get_property_reply_t& reply) {
    if (property == atoms_.supportingCheck) {
        const std::uint32_t manager = number(reply, XCB_WINDOW_NONE);
        if (manager == XCB_WINDOW_NONE) {
            setManager(XCB_WINDOW_NONE);
            return;
        }
        if (manager == manager_)
            return;
        const std::uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_discard_reply(display_.connection(),
                          xcb_change_window_attributes_checked(display_.connection(), manager,
                                                               XCB_CW_EVENT_MASK, &mask)
                              .sequence);
        ask(manager, atoms_.supportingCheck);
    } else if (!hasWindowManager()) {
        return; // left behind by one that has ended
    } else if (property == atoms_.supported) {
        const auto list = numbers(reply);
        supported_ = {list.begin(), list.end()};
        if (!supported_.contains(atoms_.stackingList))
            ask(display_.root(), atoms_.clientList);
    } else if (property == atoms_.clientList ||
               (property == atoms_.stackingList && reply.format == 32)) {
        setList(numbers(reply));
    } else if (property == atoms_.stackingList) {
        ask(display_.root(), atoms_.clientList);
    } else if (property == atoms_.activeWindow) {
        setActive(number(reply, XCB_WINDOW_NONE));
    } else if (property == atoms_.currentDesktop) {
        currentDesktop_ = number(reply, 0);
        requestedDesktop_ = X11Window::allDesktops;
    }
}

void X11Windows::answerWindow(X11Window& window, xcb_atom_t property,
                              const xcb_get_property_reply_t& reply) {
    const WindowFacts before = window.facts;
    const std::int64_t pidBefore = window.pid;
    if (property == XCB_ATOM_WM_CLASS) {
        const QList<QByteArray> parts = bytes(reply).split('\0');
        window.facts.instance = QString::fromUtf8(parts.value(0));
        window.facts.windowClass = QString::fromUtf8(parts.value(1));
    } else if (property == atoms_.gtkApplicationId) {
        window.facts.gtkApplicationId = QString::fromUtf8(bytes(reply));
    } else if (property == atoms_.clientMachine) {
        const QByteArray machine = bytes(reply);
        window.machineKnown = machine == hostName_;
        window.foreignMachine = !machine.isEmpty() && machine != hostName_;
    } else if (property == atoms_.wmPid) {
        window.pid = window.foreignMachine ? 0 : number(reply, 0);
        if (window.pid != pidBefore)
            readPid(window);
    } else if (property == atoms_.wmDesktop) {
        window.desktop = number(reply, X11Window::allDesktops);
    } else if (property == atoms_.wmState) {
        window.stateHidden = contains(numbers(reply), atoms_.stateHidden);
        noteHidden(window);
    } else if (property == atoms_.icccmState) {
        window.iconic = number(reply, 0) == iconicState;
        noteHidden(window);
    } else if (property == atoms_.wmWindowType) {
        // The first type that is known counts; what is no type of ours is an application's.
        window.application = !contains(atoms_.passiveTypes, number(reply, XCB_ATOM_NONE));
        ++generation_;
        stackingStale_ = true;
    } else if (property == atoms_.allowedActions) {
        const auto actions = numbers(reply);
        window.canMinimise = reply.format == 0 || contains(actions, atoms_.actionMinimise);
    } else if (property == atoms_.protocols) {
        window.takesDelete = contains(numbers(reply), atoms_.deleteWindow);
    }
    if (window.facts != before || window.pid != pidBefore)
        ++generation_;
}

void X11Windows::readPid(X11Window& window) {
    ProcessFacts process = processFacts(window.pid);
    window.facts.executable = std::move(process.executable);
    window.facts.commandLine = std::move(process.commandLine);
    window.facts.launchedFrom = std::move(process.launchedFrom);
}

void X11Windows::setManager(xcb_window_t manager) {
    if (manager == manager_)
        return;
    manager_ = manager;
    supported_.clear();
    requestedDesktop_ = X11Window::allDesktops;
    if (manager_ != XCB_WINDOW_NONE)
        askRoot();
    else
        settleLater();
}

xcb_window_t X11Windows::active() const {
    const bool isMoving = active_ == XCB_WINDOW_NONE && lastActive_ != XCB_WINDOW_NONE &&
                          scheduler_.now() - activeLostAt_ < focusMovesWithin;
    return isMoving ? lastActive_ : active_;
}

void X11Windows::setActive(xcb_window_t active) {
    if (active == XCB_WINDOW_NONE && active_ != XCB_WINDOW_NONE) {
        lastActive_ = active_;
        activeLostAt_ = scheduler_.now();
    }
    active_ = active;
    if (active == XCB_WINDOW_NONE)
        return;
    requestedActive_ = XCB_WINDOW_NONE;
    focusOrder_[active] = ++lastSerial_;
    if (const auto found = windows_.find(active); found != windows_.end())
        found->second.focused = lastSerial_;
}

void X11Windows::setList(std::vector<xcb_window_t> listed) {
    for (const xcb_window_t window : listed) {
        if (!windows_.contains(window))
            addWindow(window);
    }
    const std::unordered_set<xcb_window_t> kept(listed.begin(), listed.end());
    std::erase_if(windows_, [&](const auto& entry) {
        const bool gone = !kept.contains(entry.first);
        generation_ += gone ? 1 : 0;
        return gone;
    });
    listed_ = std::move(listed);
    stackingStale_ = true;
}

void X11Windows::addWindow(xcb_window_t window) {
    X11Window& added = windows_[window];
    // A window not seen in front yet goes by its place in the stack, which is the order in which
    // windows of the first list are added.
    auto [order, unseen] = focusOrder_.try_emplace(window, 0);
    if (unseen && stacking_.empty())
        order->second = ++lastSerial_;
    added.focused = order->second;
    if (focusOrder_.size() > focusOrderLimit)
        std::erase_if(focusOrder_, [&](const auto& old) { return !windows_.contains(old.first); });
    ++generation_;
    stackingStale_ = true;
    // Events first, then the values: no change can fall in between. Qt listens to our own windows.
    if (!isOurs(window)) {
        const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_discard_reply(display_.connection(),
                          xcb_change_window_attributes_checked(display_.connection(), window,
                                                               XCB_CW_EVENT_MASK, &mask)
                              .sequence);
    }
    for (const xcb_atom_t property : atoms_.windowProperties)
        ask(window, property);
}

void X11Windows::removeWindow(xcb_window_t window) {
    if (windows_.erase(window) == 0)
        return;
    ++generation_;
    stackingStale_ = true;
}

void X11Windows::updateStacking() {
    stackingStale_ = false;
    std::vector<xcb_window_t> stacking;
    for (const xcb_window_t window : listed_) {
        const X11Window* known = find(window);
        if (known != nullptr && known->application)
            stacking.push_back(window);
    }
    stacking_ = std::move(stacking);
}

void X11Windows::noteHidden(X11Window& window) {
    if (!isHidden(window))
        window.hiddenSince = 0;
    else if (window.hiddenSince == 0)
        window.hiddenSince = ++lastSerial_;
}

void X11Windows::listWithoutManager() {
    const auto found = findUnmanagedWindows(display_, atoms_.icccmState);
    if (!found)
        return;
    if (found->windows != listed_) {
        setList(found->windows);
        takeAnswers();
    }
    if (found->focus != active_ && windows_.contains(found->focus))
        setActive(found->focus);
}

bool X11Windows::isOurs(xcb_window_t window) const {
    const xcb_setup_t* setup = xcb_get_setup(display_.connection());
    return (window & ~setup->resource_id_mask) == setup->resource_id_base;
}

} // namespace skipnest::linuxdesktop
