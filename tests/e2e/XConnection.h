// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <xcb/xcb.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <memory>
#include <vector>

namespace skipnest::e2e {

struct FreeDeleter {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename T> using XReply = std::unique_ptr<T, FreeDeleter>;

// One client of the X server under test, apart from the program under test. Everything answers
// empty once the server is gone.
class XConnection {
public:
    explicit XConnection(const QString& display);
    ~XConnection();
    XConnection(const XConnection&) = delete;
    XConnection& operator=(const XConnection&) = delete;

    [[nodiscard]] bool valid() const { return xcb_connection_has_error(connection_) == 0; }
    [[nodiscard]] xcb_connection_t* raw() const { return connection_; }
    [[nodiscard]] xcb_window_t root() const { return root_; }
    [[nodiscard]] xcb_atom_t atom(const char* name);
    [[nodiscard]] QString atomName(xcb_atom_t atom);

    [[nodiscard]] std::vector<std::uint32_t> numbers(xcb_window_t window, const char* property);
    [[nodiscard]] QByteArray text(xcb_window_t window, const char* property);
    // A request to the window manager, as EWMH defines them: sent to the root.
    void ask(xcb_window_t window, const char* message, std::vector<std::uint32_t> data);
    // Everything sent so far has been carried out by the server when this returns.
    void sync();

    // True as soon as `condition` holds, looked at after each change of the root's property.
    [[nodiscard]] bool waitForRootProperty(const char* property,
                                           const std::function<bool()>& condition,
                                           std::chrono::milliseconds limit);
    // Forgets the events that have arrived.
    void drain();

private:
    xcb_connection_t* connection_;
    xcb_window_t root_ = XCB_WINDOW_NONE;
    QHash<QByteArray, xcb_atom_t> atoms_;
};

// Another program's hold on a chord, in every lock state, until dropped. Like a hotkey daemon it
// has no window.
class TakenKey {
public:
    TakenKey(const QString& display, const struct Chord& chord);
    // False where somebody else holds the chord.
    [[nodiscard]] bool held() const { return held_; }

private:
    XConnection connection_;
    bool held_ = true;
};

// Whether any client holds the chord. Tried with the server held, so that no registration that is
// under way at that moment can be refused because of the question.
[[nodiscard]] bool isTaken(XConnection& connection, const struct Chord& chord);
// Whether another client has the whole keyboard; tried in the same way.
[[nodiscard]] bool isKeyboardHeld(XConnection& connection);

} // namespace skipnest::e2e
