// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/windows/WindowMenu.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace skipnest::linuxdesktop {
namespace {

using Nodes = std::vector<AtspiNode>;

constexpr std::u16string_view windowMenuTitles[] = {
    u"window",   u"windows",  u"fenster",  u"fenêtre", u"fenêtres", u"ventana",
    u"ventanas", u"finestra", u"finestre", u"janela",  u"janelas",  u"venster",
    u"vensters", u"okno",     u"okna",     u"fönster", u"vindue",   u"vindu",
    u"vinduer",  u"ikkuna",   u"ikkunat",  u"окно",    u"окна",
};

// Menu bars are at most this far below their window, behind boxes that only lay out.
constexpr int deepest = 4;

bool laysOut(AtspiRole role) {
    return role == AtspiRole::filler || role == AtspiRole::panel || role == AtspiRole::rootPane ||
           role == AtspiRole::layeredPane;
}

QString plain(QString title) {
    return title.remove(u'&').remove(u'_').trimmed();
}

// "2 Drawing", "2. Drawing" and "2: Drawing" as the second of a list are "Drawing".
QString withoutNumber(const QString& title, std::size_t place) {
    const QString number = QString::number(place);
    if (!title.startsWith(number))
        return title;
    QStringView rest = QStringView(title).mid(number.size());
    if (rest.startsWith(u'.') || rest.startsWith(u':') || rest.startsWith(u')'))
        rest = rest.mid(1);
    return rest.startsWith(u' ') ? rest.trimmed().toString() : title;
}

bool namesWindow(const QString& entry, const QString& windowTitle) {
    return !entry.isEmpty() && !windowTitle.isEmpty() &&
           (windowTitle.contains(entry) || entry.contains(windowTitle));
}

// A walk that stops asking once an answer did not come, or it was told to.
class Walk {
public:
    Walk(AtspiConnection& connection, const std::atomic<bool>& stop)
        : connection_(connection), stop_(stop) {}

    [[nodiscard]] bool ended() const { return ended_; }

    Nodes children(const AtspiNode& node) {
        if (ended_ || stop_)
            ended_ = true;
        if (ended_)
            return {};
        auto children = connection_.children(node);
        ended_ = !children;
        return children ? std::move(*children) : Nodes{};
    }

    std::optional<AtspiNode> menuBar(const AtspiNode& parent, int depth) {
        const Nodes nodes = children(parent);
        const auto bar = std::ranges::find(nodes, AtspiRole::menuBar, &AtspiNode::role);
        if (bar != nodes.end())
            return *bar;
        for (const AtspiNode& node : nodes) {
            if (depth == deepest || !laysOut(node.role))
                continue;
            if (auto found = menuBar(node, depth + 1))
                return found;
        }
        return std::nullopt;
    }

    // Between a menu's title and its entries some toolkits have the menu as a window, others not.
    Nodes entries(const AtspiNode& title) {
        Nodes nodes = children(title);
        const bool isWindow = nodes.size() == 1 && (nodes.front().role == AtspiRole::popupMenu ||
                                                    nodes.front().role == AtspiRole::menu);
        return isWindow ? children(nodes.front()) : nodes;
    }

private:
    AtspiConnection& connection_;
    const std::atomic<bool>& stop_;
    bool ended_ = false;
};

} // namespace

bool isWindowMenuTitle(const QString& title) {
    const QString word = plain(title).toLower();
    return std::ranges::any_of(
        windowMenuTitles, [&](std::u16string_view known) { return word == QStringView(known); });
}

std::vector<WindowMenu::Entry> windowEntries(const std::vector<AtspiNode>& menu,
                                             const QString& windowTitle) {
    std::vector<WindowMenu::Entry> found;
    const auto isSeparator = [](const AtspiNode& node) {
        return node.role == AtspiRole::separator;
    };
    for (auto begin = menu.begin(); begin != menu.end();) {
        const auto end = std::find_if(begin, menu.end(), isSeparator);
        std::vector<WindowMenu::Entry> section;
        for (auto node = begin; node != end; ++node) {
            const QString title = withoutNumber(node->name, section.size() + 1);
            if (!title.isEmpty())
                section.push_back({title, node->isChecked, *node});
        }
        const auto marked = std::ranges::find(section, true, &WindowMenu::Entry::isMarked);
        if (std::ranges::count(section, true, &WindowMenu::Entry::isMarked) == 1 &&
            namesWindow(marked->title, windowTitle))
            found = std::move(section);
        begin = end == menu.end() ? end : end + 1;
    }
    return found;
}

WindowMenuReading readWindowMenu(AtspiConnection& connection, std::int64_t processId,
                                 const std::atomic<bool>& stop) {
    using Outcome = WindowMenuReading::Outcome;
    const auto program = connection.program(processId);
    if (!program)
        return {Outcome::read, {}};
    Walk walk(connection, stop);
    Nodes windows = walk.children(*program);
    std::ranges::stable_partition(windows, &AtspiNode::isActive);
    WindowMenu menu;
    for (const AtspiNode& window : windows) {
        const auto bar = window.role == AtspiRole::frame ? walk.menuBar(window, 1) : std::nullopt;
        if (!bar)
            continue;
        const Nodes titles = walk.children(*bar);
        const auto title = std::ranges::find_if(titles, isWindowMenuTitle, &AtspiNode::name);
        if (title != titles.end())
            menu.entries = windowEntries(walk.entries(*title), window.name);
        break;
    }
    return {walk.ended() ? Outcome::unanswered : Outcome::read, std::move(menu)};
}

} // namespace skipnest::linuxdesktop
