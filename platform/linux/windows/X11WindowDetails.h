// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/linux/X11Display.h"

#include <QRectF>
#include <QString>

#include <optional>
#include <unordered_map>
#include <vector>

namespace skipnest::linuxdesktop {

// What a window shows of itself. None of it is kept up by events: titles of terminals and browsers
// change all day long, and are wanted only when a person lists windows.
struct X11WindowDetails {
    enum class Role { standard, dialog, floating };

    QString title; // one line; empty where it has none
    Role role = Role::standard;
    bool inTaskbar = true;       // the person sees it in lists of windows
    std::optional<QRectF> frame; // in pixels of the screen, with what the window manager draws
};

class X11WindowDetailsReader {
public:
    explicit X11WindowDetailsReader(const X11Display& display);

    // One round trip to the server, however many windows. Those that have gone are left out.
    [[nodiscard]] std::unordered_map<xcb_window_t, X11WindowDetails>
    read(const std::vector<xcb_window_t>& windows) const;

private:
    struct Questions;

    [[nodiscard]] Questions ask(xcb_window_t window) const;
    [[nodiscard]] std::optional<X11WindowDetails> answer(const Questions& questions) const;
    [[nodiscard]] X11WindowDetails::Role role(const std::vector<std::uint32_t>& types,
                                              bool isTransient) const;

    const X11Display& display_;
    const xcb_atom_t name_, windowType_, state_, frameExtents_;
    const xcb_atom_t normal_, dialog_, utility_, toolbar_, skipTaskbar_;
};

// A title as it is shown and logged: text up to a zero byte, in one line. Any bytes are taken.
[[nodiscard]] QString titleFromUtf8(const QByteArray& bytes);

} // namespace skipnest::linuxdesktop
