// SPDX-License-Identifier: Apache-2.0
#include "switcher/WindowSwitcher.h"

#include "platform/Accessibility.h"
#include "platform/Diagnostics.h"
#include "platform/PanelHost.h"
#include "platform/PointerEvents.h"
#include "platform/ScreenCapture.h"
#include "platform/Screens.h"
#include "platform/Workspace.h"
#include "switcher/SwitcherKeys.h"
#include "switcher/WindowGathering.h"

#include <QStringBuilder>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace skipnest::switcher {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using platform::EventFlags;
using platform::KeyPress;
using platform::RunningApplication;

namespace {

// Short enough that letting the modifiers go feels like the act itself.
constexpr platform::Duration pollInterval = 30ms;
constexpr std::size_t fewest = 2; // with less there is nothing to switch between

QString truth(bool value) {
    return value ? u"true"_s : u"false"_s;
}

// The entry that a preview belongs to. Only the identifier is certain: two windows may have one
// title, and one frame where both are maximised.
std::optional<std::size_t> owner(const ContentGrabber::Shot& shot, const std::vector<Win>& wins) {
    const auto indexWhere = [&wins](const auto& belongs) -> std::optional<std::size_t> {
        const auto found = std::ranges::find_if(wins, belongs);
        if (found == wins.end())
            return std::nullopt;
        return static_cast<std::size_t>(found - wins.begin());
    };
    const auto isFree = [](const Win& win) { return win.image.isNull(); };
    if (!shot.identifier.isEmpty())
        if (const auto found =
                indexWhere([&shot](const Win& win) { return win.identifier == shot.identifier; }))
            return found;
    // What follows is for windows whose identifier is not known.
    const auto isCandidate = [&](const Win& win) {
        return isFree(win) && win.identifier.isEmpty();
    };
    const auto both = indexWhere([&](const Win& win) {
        return isCandidate(win) && win.frame == shot.frame && titlesMatch(win.title, shot.title);
    });
    return both ? both : indexWhere([&](const Win& win) {
        return isCandidate(win) && titlesMatch(win.title, shot.title);
    });
}

} // namespace

WindowSwitcher::WindowSwitcher(const platform::Ports& ports, BrowserTabs& tabs,
                               std::function<void(const QString&)> committed)
    : ports_(ports), tabs_(tabs), committed_(std::move(committed)), windows_(ports),
      grabber_(ports) {
    connectModel();
}

WindowSwitcher::~WindowSwitcher() = default;

void WindowSwitcher::connectModel() {
    model_.onPickWindow = [this](int index) {
        pick(selection_.selectWindow(index), u"click window"_s);
    };
    model_.onPickTab = [this](int index) { pick(selection_.selectTab(index), u"click tab"_s); };
    model_.onPickResult = [this](int index) {
        pick(selection_.selectResult(index), u"click result"_s);
    };
    model_.onHoverWindow = [this](int index) {
        if (!isShown_ || selection_.level() != Level::windows || !selection_.selectWindow(index))
            return;
        hold_.touch(ports_.scheduler.now());
        refresh();
    };
}

void WindowSwitcher::pick(bool isThere, const QString& reason) {
    if (isThere)
        commit(reason);
}

bool WindowSwitcher::knowsTabsOf(const QString& bundleIdentifier) const {
    return tabs_.dialect(bundleIdentifier).has_value();
}

void WindowSwitcher::setPreviews(bool wanted) {
    previews_ = wanted;
    ports_.screenCapture.setEnabled(wanted);
}

auto WindowSwitcher::offer(const RunningApplication& app) -> Answer {
    if (!isShown_ || app.pid != app_.pid)
        return Answer::declined;
    stepOn();
    return Answer::taken;
}

auto WindowSwitcher::open(const RunningApplication& front,
                          std::optional<model::ModifierFlags> modifiers, Mode mode) -> Answer {
    if (!ports_.accessibility.isTrusted()) {
        if (mode == Mode::windowsOnly)
            promptForAccessibility();
        return Answer::declined;
    }
    if (isShown_ && front.pid == app_.pid) {
        stepOn();
        return Answer::taken;
    }
    dismiss();
    auto selection = mode == Mode::tabsAllowed ? listTabs(front) : listWindows(front);
    if (!selection)
        return Answer::declined;
    begin(front, modifiers, std::move(*selection));
    return Answer::taken;
}

void WindowSwitcher::promptForAccessibility() {
    ports_.diagnostics.log(u"switcher: Accessibility missing → prompting"_s);
    ports_.accessibility.promptForTrust();
    ports_.workspace.openUrl(
        QUrl(u"x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility"_s),
        [](const platform::Outcome&) {});
}

std::optional<SwitcherSelection> WindowSwitcher::listTabs(const App& app) {
    if (!tabs_.isSupported(app))
        return std::nullopt;
    const auto tabs = tabs_.enumerate(app, BrowserTabs::Prompt::ifDenied);
    if (tabs.size() < fewest) {
        ports_.diagnostics.log(
            u"switcher: browser has %1 tab(s) — window fallback"_s.arg(tabs.size()));
        return std::nullopt;
    }
    std::vector<Win> wins = groupTabs(tabs);
    ports_.diagnostics.log(
        u"switcher: browser windows=%1 tabs=%2"_s.arg(wins.size()).arg(tabs.size()));
    pairWithWindows(wins, windows_.list(app));
    // A browser numbers its windows from the front.
    return SwitcherSelection(std::move(wins), SessionKind::browser, true);
}

std::optional<SwitcherSelection> WindowSwitcher::listWindows(const App& app) {
    const auto windows = windows_.list(app);
    const auto menu = windows_.windowMenuItems(app);
    ports_.diagnostics.log(u"switcher: " % app.name %
                           u": AX=%1 menu=%2"_s.arg(windows.size()).arg(menu.size()));
    const auto focused = windows_.indexOfFocused(app, windows);
    std::vector<Win> wins = gatherWindows(windows, focused, menu);
    if (wins.size() < fewest) {
        ports_.diagnostics.log(u"switcher: only %1 window(s) total"_s.arg(wins.size()));
        return std::nullopt;
    }
    return SwitcherSelection(std::move(wins), SessionKind::windows, focused.has_value());
}

void WindowSwitcher::begin(const App& app, std::optional<model::ModifierFlags> modifiers,
                           SwitcherSelection selection) {
    app_ = app;
    selection_ = std::move(selection);
    isShown_ = true;
    const EventFlags held = eventFlags(modifiers.value_or(model::ModifierFlags{}));
    hold_.begin(held, ports_.scheduler.now());
    const bool isDown = held.bits != 0 && ports_.keyEvents.modifiersDown().contains(held.bits);
    ports_.diagnostics.log(u"switcher: begin hold=" % QString::number(held.bits) % u" down=" %
                           truth(isDown) % u" browser=" % truth(selection_.isBrowser()) %
                           u" windows=" % QString::number(selection_.wins().size()));
    refresh();
    tapKeys();
    ports_.panels.showSwitcherBar(platform::screenForPanel(ports_.screens).available);
    clickAway_ = ports_.pointer.observeClicksOutside([this] {
        ports_.diagnostics.log(u"switcher: click outside — dismissing"_s);
        dismiss();
    });
    pollTimer_ = ports_.scheduler.every(pollInterval, "switcher poll", [this] { poll(); });
    startPreviews();
}

void WindowSwitcher::tapKeys() {
    auto tap = ports_.keyEvents.intercept(*this);
    if (!tap) {
        ports_.diagnostics.log(
            u"switcher: CGEventTap create failed — arrows/search off (hold-cycle only)"_s);
        return;
    }
    tap_ = std::move(tap).value();
    ports_.diagnostics.log(u"switcher: CGEventTap installed"_s);
}

void WindowSwitcher::startPreviews() {
    if (!previews_)
        return;
    for (std::size_t i = 0; i < selection_.wins().size(); ++i) {
        const AppWindows::Element& element = selection_.wins()[i].element;
        if (!element)
            continue;
        const auto value = ports_.accessibility.attribute(element, u"AXWindowID"_s);
        if (const QString* identifier = value ? std::get_if<QString>(&*value) : nullptr)
            selection_.setIdentifier(i, *identifier);
    }
    grabber_.start(app_, [this](const ContentGrabber::Shot& shot) { showPreview(shot); });
}

void WindowSwitcher::showPreview(const ContentGrabber::Shot& shot) {
    const auto window = owner(shot, selection_.wins());
    if (!window)
        return;
    selection_.setImage(*window, shot.image);
    model_.setImage(static_cast<int>(*window), shot.image);
}

void WindowSwitcher::poll() {
    using Step = HoldGesture::Verdict;
    // Its windows are gone with it, and raising one would raise somebody else's.
    if (ports_.applications.state(app_.pid).terminated) {
        ports_.diagnostics.log(u"switcher: the application has ended — dismissing"_s);
        return dismiss();
    }
    const bool canAdvance =
        selection_.level() == Level::windows && selection_.wins().size() >= fewest;
    // Read anew each time: the release may have happened while nobody listened.
    const EventFlags down = hold_.isPinned() ? EventFlags{} : ports_.keyEvents.modifiersDown();
    switch (hold_.tick(down, canAdvance, ports_.scheduler.now())) {
    case Step::nothing:
        return;
    case Step::advance:
        selection_.step(1);
        return refresh();
    case Step::pinned:
        ports_.diagnostics.log(u"switcher: tap-open → interactive"_s);
        return refresh();
    case Step::commitReleased:
        return commit(u"modifier released"_s);
    case Step::commitTooLong:
        return commit(u"safety timeout"_s);
    case Step::idle:
        ports_.diagnostics.log(u"switcher: pinned idle timeout — dismissing"_s);
        return dismiss();
    }
}

void WindowSwitcher::stepOn() {
    hold_.touch(ports_.scheduler.now());
    selection_.stepOn();
    refresh();
}

auto WindowSwitcher::keyPressed(const KeyPress& press) -> Verdict {
    if (!isShown_)
        return Verdict::passed;
    // The repeats of a shortcut do nothing, here as everywhere.
    if (isShortcut_ && isShortcut_({press.keyCode, modifierFlags(press.flags)}))
        return press.isRepeat ? Verdict::consumed : Verdict::passed;
    const SwitcherKey key = switcherKey(press.keyCode);
    if (key == SwitcherKey::other && !isTyping(press))
        return Verdict::passed;
    // Of a key held down too long only the first press counts where more would surprise: a shortcut
    // that is held must not write into the search, and Return picks once.
    const bool repeats =
        key != SwitcherKey::other && key != SwitcherKey::pick && key != SwitcherKey::leave;
    if (press.isRepeat && !repeats)
        return Verdict::consumed;
    if (hold_.pin(ports_.scheduler.now()))
        ports_.diagnostics.log(u"switcher: pinned (interactive)"_s);
    act(press);
    return Verdict::consumed;
}

void WindowSwitcher::act(const KeyPress& press) {
    switch (switcherKey(press.keyCode)) {
    case SwitcherKey::right:
        selection_.step(1);
        break;
    case SwitcherKey::left:
        selection_.step(-1);
        break;
    case SwitcherKey::down:
        selection_.goDown();
        break;
    case SwitcherKey::up:
        selection_.goUp();
        break;
    case SwitcherKey::next:
        selection_.step(press.flags.contains(EventFlags::shift) ? -1 : 1);
        break;
    case SwitcherKey::pick:
        return commit(u"return"_s);
    case SwitcherKey::leave:
        if (selection_.goBack())
            break;
        ports_.diagnostics.log(u"switcher: Escape → cancel"_s);
        return dismiss();
    case SwitcherKey::erase:
        if (selection_.query().isEmpty())
            break;
        selection_.eraseLast();
        logSearch();
        break;
    case SwitcherKey::other:
        selection_.type(press.text);
        logSearch();
        break;
    }
    refresh();
}

void WindowSwitcher::logSearch() {
    ports_.diagnostics.log(u"switcher: query='" % selection_.query() % u"' matches=" %
                           QString::number(selection_.hits().size()));
}

void WindowSwitcher::refresh() {
    SwitcherModel::Content content = selection_.content();
    content.isPinned = hold_.isPinned();
    content.appName = app_.name.isEmpty() ? u"App"_s : app_.name;
    content.appIcon = app_.bundlePath;
    for (SwitcherModel::WinVM& window : content.windows)
        window.fallbackIcon = app_.bundlePath;
    model_.setContent(std::move(content));
}

void WindowSwitcher::commit(const QString& reason) {
    if (!isShown_)
        return;
    const std::optional<Target> target = selection_.target();
    const App app = app_;
    const std::vector<Win> wins = selection_.wins();
    dismiss();
    ports_.diagnostics.log(u"switcher: commit(" % reason % u")");
    if (!target)
        return;
    activate(*target, app, wins);
    committed_(app.name);
}

void WindowSwitcher::activate(const Target& target, const App& app, const std::vector<Win>& wins) {
    if (const auto* tab = std::get_if<TabRef>(&target))
        return tabs_.activate(tab->browserTab(), app);
    const Win& win = wins[std::get<WindowTarget>(target).window];
    const TabRef* tab = win.activeTab();
    if (win.element) {
        // What the window is called on the desktop: a browser's is longer than its tab's. Of others
        // it is what was listed; asking now would wait for the bar to be gone from the screen.
        const auto full = tab != nullptr ? windows_.title(win.element) : std::nullopt;
        return windows_.raise(win.element, app, full.value_or(win.title));
    }
    if (tab != nullptr)
        return tabs_.activate(tab->browserTab(), app);
    (void)windows_.menuRaise(app, win.title);
}

void WindowSwitcher::dismiss() {
    if (!isShown_)
        return;
    pollTimer_.reset();
    tap_.reset();
    clickAway_.reset();
    grabber_.stop();
    ports_.panels.hideSwitcherBar();
    isShown_ = false;
    hold_.end();
    app_ = {};
    selection_ = {};
    model_.setContent({});
}

} // namespace skipnest::switcher
