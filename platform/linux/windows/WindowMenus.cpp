// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/windows/WindowMenus.h"

#include <algorithm>

namespace skipnest::linuxdesktop {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using platform::AccessibilityElement;
using platform::AccessibilityStatus;
using platform::AccessibilityValue;
using Elements = std::vector<AccessibilityElement>;

// A window that has just come to the front has better things to do, and menus change with it.
constexpr platform::Duration settling = 150ms;
// Of one reading. Five times of what the slowest program took on a loaded machine.
constexpr platform::Duration longest = 1s;

// A window's number has 32 bits; above them is the number of the reading, below the part of it.
constexpr int partBits = 32;
constexpr std::uint32_t barPart = 0;
constexpr std::uint32_t windowTitlePart = 1;
constexpr std::uint32_t lastTitlePart = 2;
constexpr std::uint32_t menuPart = 3;
constexpr std::uint32_t firstEntryPart = 4;

std::uint64_t numberOf(const AccessibilityElement& element) {
    return element.id >> partBits;
}

std::uint32_t partOf(const AccessibilityElement& element) {
    return static_cast<std::uint32_t>(element.id);
}

} // namespace

WindowMenus::WindowMenus(platform::Scheduler& scheduler, platform::Executor& executor,
                         X11Windows& windows, X11Applications& applications)
    : scheduler_(scheduler), executor_(executor), windows_(windows), applications_(applications),
      changes_(windows.observeChanges([this] { lookAtFront(); })) {}

WindowMenus::~WindowMenus() {
    if (run_)
        *run_->stop = true;
}

bool WindowMenus::isMenu(const Element& element) {
    return numberOf(element) != 0;
}

void WindowMenus::lookAtFront() {
    if (windows_.active() == seenActive_)
        return;
    seenActive_ = windows_.active();
    applications_.update();
    const X11Application* front = applications_.active();
    readSoon(front == nullptr ? 0 : front->processId);
}

void WindowMenus::readSoon(std::int64_t processId) {
    wanted_ = processId;
    settling_ = scheduler_.after(settling, "window menu", [this] {
        settling_.reset();
        read();
    });
}

void WindowMenus::read() {
    if (run_ && run_->processId != wanted_)
        *run_->stop = true;
    if (run_ || wanted_ == 0)
        return;
    run_ = Run{std::exchange(wanted_, 0)};
    deadline_ = scheduler_.after(longest, "window menu's end", [this] {
        run_->isLate = true;
        *run_->stop = true;
    });
    auto reading = std::make_shared<WindowMenuReading>();
    executor_.background(
        [connection = connection_, reading, process = run_->processId, stop = run_->stop] {
            *reading = readWindowMenu(*connection, process, *stop);
        },
        [this, reading, alive = std::weak_ptr(alive_)] {
            if (!alive.expired())
                finish(*reading);
        });
}

void WindowMenus::finish(const WindowMenuReading& reading) {
    using Outcome = WindowMenuReading::Outcome;
    deadline_.reset();
    const Run run = *run_;
    run_.reset();
    const bool wasCalledOff = *run.stop && !run.isLate;
    if (!wasCalledOff) {
        if (reading.outcome == Outcome::read && !reading.menu.entries.empty() &&
            isRunning(run.processId))
            known_.insert_or_assign(run.processId, Known{++lastNumber_, reading.menu});
        else
            known_.erase(run.processId);
    }
    std::erase_if(known_, [this](const auto& menu) { return !isRunning(menu.first); });
    if (!settling_)
        read(); // what became due in the meantime
}

bool WindowMenus::isRunning(std::int64_t processId) const {
    const auto& applications = applications_.all();
    return std::ranges::find(applications, processId, &X11Application::processId) !=
           applications.end();
}

AccessibilityElement WindowMenus::bar(const X11Application& application) {
    if (application.processId == 0)
        return {};
    if (!settling_ && !run_)
        readSoon(application.processId);
    const auto known = known_.find(application.processId);
    return known == known_.end() ? Element{} : Element{known->second.number << partBits | barPart};
}

const WindowMenus::Known* WindowMenus::find(const Element& element) const {
    const auto found = std::ranges::find_if(
        known_, [&](const auto& known) { return known.second.number == numberOf(element); });
    return found == known_.end() ? nullptr : &found->second;
}

const WindowMenu::Entry* WindowMenus::entry(const Element& element) const {
    const Known* known = find(element);
    if (known == nullptr || partOf(element) < firstEntryPart)
        return nullptr;
    const std::size_t index = partOf(element) - firstEntryPart;
    return index < known->menu.entries.size() ? &known->menu.entries[index] : nullptr;
}

std::optional<AccessibilityValue> WindowMenus::attribute(const Element& element,
                                                         const QString& name) const {
    const Known* known = find(element);
    if (known == nullptr)
        return std::nullopt;
    const auto part = [known](std::uint64_t part) {
        return Element{known->number << partBits | part};
    };
    if (name == u"AXChildren") {
        Elements children;
        if (partOf(element) == barPart)
            children = {part(windowTitlePart), part(lastTitlePart)};
        else if (partOf(element) == windowTitlePart)
            children = {part(menuPart)};
        else if (partOf(element) == menuPart)
            for (std::size_t i = 0; i < known->menu.entries.size(); ++i)
                children.push_back(part(firstEntryPart + i));
        return children;
    }
    const WindowMenu::Entry* shown = entry(element);
    if (shown == nullptr)
        return std::nullopt;
    if (name == u"AXTitle")
        return shown->title;
    if (name == u"AXMenuItemMarkChar")
        return shown->isMarked ? u"✓"_s : QString();
    return std::nullopt;
}

std::int64_t WindowMenus::processOf(const Element& element) const {
    const auto found = std::ranges::find_if(
        known_, [&](const auto& known) { return known.second.number == numberOf(element); });
    return found == known_.end() ? 0 : found->first;
}

int WindowMenus::press(const Element& element) {
    const WindowMenu::Entry* chosen = entry(element);
    if (chosen == nullptr)
        return AccessibilityStatus::invalidElement;
    executor_.background(
        [connection = connection_, node = chosen->node] { (void)connection->press(node); }, [] {});
    return AccessibilityStatus::success;
}

} // namespace skipnest::linuxdesktop
