// SPDX-License-Identifier: Apache-2.0
#include "platform/QtScheduler.h"

#include <QPointer>
#include <QTimer>

#include <memory>
#include <utility>

namespace skipnest::platform {
namespace {

using namespace std::chrono_literals;

// Waits this long need no precision; the system may gather them with other wake-ups.
constexpr Duration coarseFrom = 20s;

} // namespace

QtScheduler::QtScheduler(QObject* parent) : QObject(parent) {}

QtScheduler::~QtScheduler() = default;

Instant QtScheduler::now() const {
    return Instant(std::chrono::steady_clock::now().time_since_epoch());
}

Timer QtScheduler::after(Duration delay, const char* name, Task task) {
    return start(delay, name, std::move(task), Repetition::once);
}

Timer QtScheduler::every(Duration period, const char* name, Task task) {
    return start(std::max<Duration>(period, 1ms), name, std::move(task), Repetition::forever);
}

Timer QtScheduler::start(Duration interval, const char* name, Task task, Repetition repetition) {
    const quint64 id = ++lastId_;
    // Rounded up: a task never runs before its time.
    const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(interval);
    auto* timer = new QTimer(this);
    timer->setTimerType(interval >= coarseFrom ? Qt::VeryCoarseTimer : Qt::PreciseTimer);
    timer->setSingleShot(repetition == Repetition::once);
    connect(timer, &QTimer::timeout, this, [this, id, timer, repetition, task = std::move(task)] {
        const Task running = task; // the task may drop its own timer
        if (repetition == Repetition::once) {
            running_.erase(id);
            timer->deleteLater();
        }
        running();
    });
    timer->start(milliseconds);
    running_[id] =
        QStringLiteral("%1 (%2)").arg(QString::fromLatin1(name)).arg(milliseconds.count());
    return Timer([self = QPointer<QtScheduler>(this), timer = QPointer<QTimer>(timer), id] {
        if (!self)
            return;
        self->running_.erase(id);
        if (timer) {
            timer->stop();
            timer->deleteLater();
        }
    });
}

void QtScheduler::post(Task task) {
    QMetaObject::invokeMethod(this, std::move(task), Qt::QueuedConnection);
}

QStringList QtScheduler::runningTimers() const {
    QStringList names;
    for (const auto& [id, name] : running_)
        names.append(name);
    names.sort();
    return names;
}

} // namespace skipnest::platform
