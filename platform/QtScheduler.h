// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Scheduler.h"

#include <QObject>
#include <QStringList>

#include <map>

namespace skipnest::platform {

// The real Scheduler: Qt's event loop of the thread that made it, which must be the main thread.
// Tasks that wait when it is destroyed are dropped.
class QtScheduler final : public QObject, public Scheduler {
    Q_OBJECT
public:
    explicit QtScheduler(QObject* parent = nullptr);
    ~QtScheduler() override;

    [[nodiscard]] Instant now() const override;
    [[nodiscard]] Timer after(Duration delay, const char* name, Task task) override;
    [[nodiscard]] Timer every(Duration period, const char* name, Task task) override;
    void post(Task task) override;

    // "name (period in ms)" of every timer that is running, sorted.
    [[nodiscard]] QStringList runningTimers() const;

private:
    enum class Repetition { once, forever };
    Timer start(Duration interval, const char* name, Task task, Repetition repetition);

    std::map<quint64, QString> running_;
    quint64 lastId_ = 0;
};

} // namespace skipnest::platform
