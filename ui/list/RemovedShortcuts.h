// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ShortcutListViewModel.h"
#include "platform/Scheduler.h"

#include <QObject>

#include <vector>

namespace skipnest::ui {

// Removing with a way back: for a few seconds the removed records can be put back, the last one
// first, each as it was and where it was.
class RemovedShortcuts final : public QObject {
    Q_OBJECT
public:
    static constexpr platform::Duration offeredFor = std::chrono::seconds(8);

    RemovedShortcuts(model::ShortcutListViewModel& list, platform::Scheduler& scheduler,
                     QObject* parent = nullptr);

    void remove(const model::RecordId& id);
    // False where nothing is left to put back, or it could not be.
    bool undo();

    [[nodiscard]] bool isOffered() const { return !removed_.empty(); }
    // Of the record that undo() would put back; empty where there is none.
    [[nodiscard]] QString name() const {
        return isOffered() ? removed_.back().item.name : QString();
    }

Q_SIGNALS:
    void changed();

private:
    struct Removed {
        model::ShortcutItem item;
        qsizetype row = 0;
        bool wasConfirmed = true;
    };

    void offer();

    model::ShortcutListViewModel& list_;
    platform::Scheduler& scheduler_;
    std::vector<Removed> removed_;
    platform::Timer end_;
};

} // namespace skipnest::ui
