// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/RecordId.h"

#include <QObject>
#include <qqmlintegration.h>

namespace skipnest::app {
class AppDelegate;
}

namespace skipnest::ui {

class ShortcutEditor final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the popover")
public:
    explicit ShortcutEditor(app::AppDelegate& agent, QObject* parent = nullptr);

    // Begins a new shortcut, for this target where it is not empty.
    void startAdd(const QString&) {}
    void startEdit(const model::RecordId&) {}
    // Ends recordings and searches; what was typed stays.
    void pause() {}
    // The screen was left.
    void cancel() {}

Q_SIGNALS:
    // Saved or given up: the list shows again.
    void finished();

private:
    app::AppDelegate& agent_;
};

} // namespace skipnest::ui
