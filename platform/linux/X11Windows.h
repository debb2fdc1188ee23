// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Observers.h"
#include "platform/Scheduler.h"
#include "platform/linux/ApplicationIdentity.h"
#include "platform/linux/X11Display.h"

#include <cstdint>
#include <deque>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace skipnest::linuxdesktop {

// One top-level window as the cache has it.
struct X11Window {
    static constexpr std::uint32_t allDesktops = 0xFFFFFFFF;

    WindowFacts facts;
    std::int64_t pid = 0; // 0 where it names none, or one of another machine
    bool foreignMachine = false;
    bool machineKnown = false; // WM_CLIENT_MACHINE says this machine: its pid may be signalled
    std::uint32_t desktop = allDesktops;
    bool application = true;  // of a type that people switch to: no dock, desktop, splash, menu
    bool stateHidden = false; // _NET_WM_STATE_HIDDEN
    bool iconic = false;      // WM_STATE
    bool canMinimise = true;
    bool takesDelete = false;      // WM_DELETE_WINDOW
    std::uint64_t focused = 0;     // higher: in front more recently; 0: never seen in front
    std::uint64_t hiddenSince = 0; // higher: hidden more recently; 0: not hidden
};

// The desktop's windows, kept in memory by property events, so that a key press asks nobody.
//
// An event only sends off the question for the new value; settle() takes in the answers, which have
// mostly arrived by then. Every read goes through settle() first, so nobody sees half a window: a
// focus change that precedes the window's own properties is told when those are there.
//
// Without a window manager nothing is announced; each settle() then asks the server itself.
class X11Windows {
public:
    X11Windows(X11Display& display, platform::Scheduler& scheduler);
    ~X11Windows();
    X11Windows(const X11Windows&) = delete;
    X11Windows& operator=(const X11Windows&) = delete;

    // Takes in what has been asked for. Waits only for answers still under way.
    void settle();
    // Compares the cache with the server's list now: what events failed to tell is found out.
    void relist();

    // The following read what the last settle() left.
    [[nodiscard]] const X11Window* find(xcb_window_t window) const;
    // Windows of applications, bottom to top.
    [[nodiscard]] const std::vector<xcb_window_t>& stacking() const { return stacking_; }
    // A window manager that moves the focus announces "no window" in between. For that moment the
    // window that had it still counts, so that a key pressed then finds an application in front.
    [[nodiscard]] xcb_window_t active() const;
    [[nodiscard]] std::uint32_t currentDesktop() const { return currentDesktop_; }
    [[nodiscard]] bool hasWindowManager() const { return manager_ != XCB_WINDOW_NONE; }
    [[nodiscard]] bool supports(const char* atom) const;
    [[nodiscard]] bool isHidden(const X11Window& window) const;
    // Another number: windows came, went, or tell something else of their application.
    [[nodiscard]] std::uint64_t generation() const { return generation_; }

    // A switch asked of the window manager counts as under way until it says where we are.
    void noteRequestedDesktop(std::uint32_t desktop) { requestedDesktop_ = desktop; }
    [[nodiscard]] bool needsDesktop(std::uint32_t desktop) const;
    // The window whose activation was asked for and may still be under way. None as soon as any
    // window has come to the front, or it takes too long.
    void noteRequestedActive(xcb_window_t window);
    [[nodiscard]] xcb_window_t requestedActive() const;

    // Told on the main thread when a burst of changes has been taken in, never from inside
    // settle().
    [[nodiscard]] platform::Observation observeChanges(std::function<void()> changed);

private:
    struct Question {
        xcb_window_t window;
        xcb_atom_t property;
        xcb_get_property_cookie_t cookie;
    };

    void handleEvent(const xcb_generic_event_t& event);
    void takeAnswers();
    void ask(xcb_window_t window, xcb_atom_t property);
    void askRoot();
    void settleLater();
    void answer(const Question& question, const xcb_get_property_reply_t& reply);
    void answerRoot(xcb_atom_t property, const xcb_get_property_reply_t& reply);
    void answerWindow(X11Window& window, xcb_atom_t property,
                      const xcb_get_property_reply_t& reply);
    void readPid(X11Window& window);
    void setManager(xcb_window_t manager);
    void setActive(xcb_window_t active);
    void setList(std::vector<xcb_window_t> listed);
    void addWindow(xcb_window_t window);
    void removeWindow(xcb_window_t window);
    void updateStacking();
    void noteHidden(X11Window& window);
    void listWithoutManager();
    [[nodiscard]] bool isOurs(xcb_window_t window) const;

    struct Atoms {
        explicit Atoms(const X11Display& display);
        xcb_atom_t clientList, stackingList, activeWindow, currentDesktop, supportingCheck,
            supported;
        xcb_atom_t gtkApplicationId, wmPid, wmDesktop, wmState, wmWindowType, allowedActions;
        xcb_atom_t icccmState, clientMachine, protocols;
        xcb_atom_t stateHidden, actionMinimise, deleteWindow;
        std::vector<xcb_atom_t> passiveTypes;
        std::vector<xcb_atom_t> rootProperties, windowProperties;
    };

    X11Display& display_;
    platform::Scheduler& scheduler_;
    const Atoms atoms_;
    const QByteArray hostName_;
    std::deque<Question> questions_;
    std::unordered_map<xcb_window_t, X11Window> windows_;
    // Outlives the windows' entries, so that a restarted window manager loses no order.
    std::unordered_map<xcb_window_t, std::uint64_t> focusOrder_;
    std::vector<xcb_window_t> listed_; // bottom to top, all types
    std::vector<xcb_window_t> stacking_;
    std::unordered_set<xcb_atom_t> supported_;
    xcb_window_t manager_ = XCB_WINDOW_NONE;
    xcb_window_t active_ = XCB_WINDOW_NONE;
    xcb_window_t lastActive_ = XCB_WINDOW_NONE;
    platform::Instant activeLostAt_;
    xcb_window_t requestedActive_ = XCB_WINDOW_NONE;
    platform::Instant requestedActiveAt_;
    std::uint32_t currentDesktop_ = 0;
    std::uint32_t requestedDesktop_ = X11Window::allDesktops;
    std::uint64_t generation_ = 1;
    std::uint64_t lastSerial_ = 0;
    bool stackingStale_ = false;
    bool settlePosted_ = false;
    platform::Observers<> changed_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    platform::Observation events_;
};

} // namespace skipnest::linuxdesktop
