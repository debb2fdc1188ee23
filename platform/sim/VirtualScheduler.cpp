// SPDX-License-Identifier: Apache-2.0
#include "platform/sim/VirtualScheduler.h"

#include <cstdint>
#include <deque>
#include <map>
#include <mutex>
#include <utility>

namespace skipnest::sim {

using namespace std::chrono_literals;
using platform::Duration;
using platform::Instant;
using platform::Timer;

namespace {

Instant later(Instant from, Duration by) {
    by = std::max(by, Duration::zero());
    return by > Instant::max() - from ? Instant::max() : from + by;
}

} // namespace

struct VirtualScheduler::State {
    struct Waiting {
        std::uint64_t id;
        const char* name;
        Duration interval;
        Repetition repetition;
        Task task;
    };
    // Insertion order decides between equal deadlines.
    using Key = std::pair<Instant, std::uint64_t>;

    void insert(Instant deadline, Waiting waiting) {
        const Key key{deadline, ++lastInsertion};
        keys[waiting.id] = key;
        tasks.emplace(key, std::move(waiting));
    }
    void drop(std::uint64_t id) {
        const auto found = keys.find(id);
        if (found == keys.end())
            return;
        tasks.erase(found->second);
        keys.erase(found);
    }

    Instant now{};
    std::uint64_t lastInsertion = 0;
    std::uint64_t lastId = 0;
    std::map<Key, Waiting> tasks;
    std::map<std::uint64_t, Key> keys;
    std::mutex postedLock;
    std::deque<Task> posted;
    Instant countedAt{};
    int countedTasks = 0;
    std::optional<QString> fault;
};

VirtualScheduler::VirtualScheduler() : state_(std::make_shared<State>()) {}

VirtualScheduler::~VirtualScheduler() = default;

Instant VirtualScheduler::now() const {
    return state_->now;
}

Timer VirtualScheduler::after(Duration delay, const char* name, Task task) {
    return start(delay, name, std::move(task), Repetition::once);
}

Timer VirtualScheduler::every(Duration period, const char* name, Task task) {
    return start(std::max<Duration>(period, 1ms), name, std::move(task), Repetition::forever);
}

Timer VirtualScheduler::start(Duration interval, const char* name, Task task,
                              Repetition repetition) {
    const std::uint64_t id = ++state_->lastId;
    state_->insert(later(state_->now, interval), {id, name, interval, repetition, std::move(task)});
    return Timer([weak = std::weak_ptr<State>(state_), id] {
        if (const auto state = weak.lock())
            state->drop(id);
    });
}

void VirtualScheduler::post(Task task) {
    const std::lock_guard guard(state_->postedLock);
    state_->posted.push_back(std::move(task));
}

bool VirtualScheduler::countTask(const char* name) {
    if (state_->fault)
        return false;
    if (std::exchange(state_->countedAt, state_->now) != state_->now)
        state_->countedTasks = 0;
    if (++state_->countedTasks <= tasksPerInstant)
        return true;
    const double seconds = std::chrono::duration<double>(state_->now.time_since_epoch()).count();
    state_->fault = QStringLiteral("\"%1\" does not come to rest at %2 s")
                        .arg(QString::fromUtf8(name))
                        .arg(seconds);
    return false;
}

void VirtualScheduler::runPosted() {
    while (true) {
        Task task;
        {
            const std::lock_guard guard(state_->postedLock);
            if (state_->posted.empty())
                return;
            task = std::move(state_->posted.front());
            state_->posted.pop_front();
        }
        if (!countTask("posted work"))
            return;
        task();
    }
}

void VirtualScheduler::advanceTo(Instant until) {
    runPosted();
    while (!state_->tasks.empty() && !state_->fault) {
        const auto first = state_->tasks.begin();
        const Instant deadline = first->first.first;
        if (deadline > until)
            break;
        state_->now = std::max(state_->now, deadline);
        if (!countTask(first->second.name))
            break;
        State::Waiting running = first->second;
        state_->drop(running.id);
        if (running.repetition == Repetition::forever) {
            // Ticks that a blocking wait swallowed are not made up for.
            const auto missed = (state_->now - deadline) / running.interval;
            state_->insert(later(deadline, (missed + 1) * running.interval), running);
        }
        running.task();
        runPosted();
    }
    state_->now = std::max(state_->now, until);
}

void VirtualScheduler::block(Duration duration) {
    state_->now = later(state_->now, duration);
}

std::optional<QString> VirtualScheduler::fault() const {
    return state_->fault;
}

QStringList VirtualScheduler::runningTimers() const {
    QStringList names;
    for (const auto& [key, waiting] : state_->tasks) {
        const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(waiting.interval);
        names.append(QStringLiteral("%1 (%2)")
                         .arg(QString::fromUtf8(waiting.name))
                         .arg(milliseconds.count()));
    }
    names.sort();
    return names;
}

} // namespace skipnest::sim
