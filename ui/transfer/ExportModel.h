// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <qqmlintegration.h>

namespace skipnest::app {
class AppDelegate;
}

namespace skipnest::ui {

class ExportModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the popover")
public:
    explicit ExportModel(app::AppDelegate& agent, QObject* parent = nullptr);

    void reset() {}

private:
    app::AppDelegate& agent_;
};

} // namespace skipnest::ui
