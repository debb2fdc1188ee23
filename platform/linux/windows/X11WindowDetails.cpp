// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/windows/X11WindowDetails.h"

#include <algorithm>

namespace skipnest::linuxdesktop {
namespace {

// In 4-byte units: more than any title is long.
constexpr std::uint32_t lengthLimit = 16 * 1024;

using PropertyReply = XcbPtr<xcb_get_property_reply_t>;

std::vector<std::uint32_t> numbers(const PropertyReply& reply) {
    if (!reply || reply->format != 32)
        return {};
    const auto* data = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {data, data + reply->value_len};
}

QByteArray bytes(const PropertyReply& reply) {
    if (!reply || reply->format != 8)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            xcb_get_property_value_length(reply.get())};
}

QString oneLine(QString text) {
    if (const qsizetype end = text.indexOf(QChar(0)); end >= 0)
        text.truncate(end);
    const auto breaksLine = [](QChar character) {
        return character.category() == QChar::Other_Control ||
               character.category() == QChar::Separator_Line ||
               character.category() == QChar::Separator_Paragraph;
    };
    std::replace_if(text.begin(), text.end(), breaksLine, QChar(u' '));
    return text.trimmed();
}

bool contains(const std::vector<std::uint32_t>& list, std::uint32_t value) {
    return std::find(list.begin(), list.end(), value) != list.end();
}

} // namespace

QString titleFromUtf8(const QByteArray& bytes) {
    return oneLine(QString::fromUtf8(bytes));
}

struct X11WindowDetailsReader::Questions {
    xcb_window_t window;
    xcb_get_property_cookie_t name, plainName, type, transientFor, state, extents;
    xcb_get_geometry_cookie_t geometry;
    xcb_translate_coordinates_cookie_t position;
};

X11WindowDetailsReader::X11WindowDetailsReader(const X11Display& display)
    : display_(display), name_(display.atom("_NET_WM_NAME")),
      windowType_(display.atom("_NET_WM_WINDOW_TYPE")), state_(display.atom("_NET_WM_STATE")),
      frameExtents_(display.atom("_NET_FRAME_EXTENTS")),
      normal_(display.atom("_NET_WM_WINDOW_TYPE_NORMAL")),
      dialog_(display.atom("_NET_WM_WINDOW_TYPE_DIALOG")),
      utility_(display.atom("_NET_WM_WINDOW_TYPE_UTILITY")),
      toolbar_(display.atom("_NET_WM_WINDOW_TYPE_TOOLBAR")),
      skipTaskbar_(display.atom("_NET_WM_STATE_SKIP_TASKBAR")) {}

std::unordered_map<xcb_window_t, X11WindowDetails>
X11WindowDetailsReader::read(const std::vector<xcb_window_t>& windows) const {
    std::vector<Questions> asked;
    asked.reserve(windows.size());
    for (const xcb_window_t window : windows)
        asked.push_back(ask(window));
    std::unordered_map<xcb_window_t, X11WindowDetails> details;
    for (const Questions& questions : asked)
        if (auto answered = answer(questions))
            details.emplace(questions.window, std::move(*answered));
    return details;
}

X11WindowDetailsReader::Questions X11WindowDetailsReader::ask(xcb_window_t window) const {
    xcb_connection_t* connection = display_.connection();
    const auto property = [&](xcb_atom_t name) {
        return xcb_get_property(connection, 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0,
                                lengthLimit);
    };
    return {window,
            property(name_),
            property(XCB_ATOM_WM_NAME),
            property(windowType_),
            property(XCB_ATOM_WM_TRANSIENT_FOR),
            property(state_),
            property(frameExtents_),
            xcb_get_geometry(connection, window),
            xcb_translate_coordinates(connection, window, display_.root(), 0, 0)};
}

std::optional<X11WindowDetails> X11WindowDetailsReader::answer(const Questions& questions) const {
    xcb_connection_t* connection = display_.connection();
    // Every answer is taken, also where the window has gone: those left would pile up.
    const auto property = [&](xcb_get_property_cookie_t cookie) {
        return PropertyReply(xcb_get_property_reply(connection, cookie, nullptr));
    };
    const PropertyReply name = property(questions.name);
    const PropertyReply plainName = property(questions.plainName);
    const PropertyReply type = property(questions.type);
    const PropertyReply transientFor = property(questions.transientFor);
    const PropertyReply state = property(questions.state);
    const PropertyReply extents = property(questions.extents);
    const XcbPtr<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(connection, questions.geometry, nullptr));
    const XcbPtr<xcb_translate_coordinates_reply_t> position(
        xcb_translate_coordinates_reply(connection, questions.position, nullptr));
    if (!name)
        return std::nullopt;

    X11WindowDetails details;
    details.title = titleFromUtf8(bytes(name));
    if (details.title.isEmpty() && plainName) {
        const bool isLatin = plainName->type == XCB_ATOM_STRING;
        details.title = isLatin ? oneLine(QString::fromLatin1(bytes(plainName)))
                                : titleFromUtf8(bytes(plainName));
    }
    const auto leaders = numbers(transientFor);
    details.role = role(numbers(type), !leaders.empty() && leaders.front() != XCB_WINDOW_NONE);
    details.inTaskbar = !contains(numbers(state), skipTaskbar_);
    if (geometry && position) {
        QRectF frame(position->dst_x, position->dst_y, geometry->width, geometry->height);
        if (const auto sides = numbers(extents); sides.size() == 4) // left, right, top, bottom
            frame.adjust(-double(sides[0]), -double(sides[2]), sides[1], sides[3]);
        details.frame = frame;
    }
    return details;
}

X11WindowDetails::Role X11WindowDetailsReader::role(const std::vector<std::uint32_t>& types,
                                                    bool isTransient) const {
    using Role = X11WindowDetails::Role;
    for (const xcb_atom_t type : types) { // the first that is known counts
        if (type == normal_)
            return Role::standard;
        if (type == dialog_)
            return Role::dialog;
        if (type == utility_ || type == toolbar_)
            return Role::floating;
    }
    return isTransient ? Role::dialog : Role::standard;
}

} // namespace skipnest::linuxdesktop
