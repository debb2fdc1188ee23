// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Availability.h"
#include "ui/controls/KeyedListModel.h"

#include <qqmlintegration.h>

namespace skipnest::platform {
struct Ports;
}

namespace skipnest::ui {

struct AvailabilityRow {
    QString title;
    platform::Availability availability;

    [[nodiscard]] const QString& key() const { return title; }
    bool operator==(const AvailabilityRow&) const = default;
};

// What works on this machine and in this session, and what to do about what does not.
class AvailabilityRows final : public KeyedListModel<AvailabilityRow> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the settings")
public:
    using Row = AvailabilityRow;

    AvailabilityRows(const platform::Ports& ports, QObject* parent);

    // Asks again: panels and permissions come and go.
    void update();
    // One line a row, for a bug report.
    [[nodiscard]] QString report() const;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    enum Role { titleRole = Qt::UserRole, stateRole, reasonRole, remedyRole };

    const platform::Ports& ports_;
};

} // namespace skipnest::ui
