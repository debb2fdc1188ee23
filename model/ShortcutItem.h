// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/KeyCombo.h"
#include "model/RecordId.h"

#include <QByteArray>
#include <QDateTime>
#include <QJsonObject>
#include <QString>

#include <cstdint>
#include <optional>

namespace skipnest::model {

// One shortcut: a target on disk and the combos that jump to it and hide it.
struct ShortcutItem {
    enum class TargetType { file, folder, application };

    RecordId id = RecordId::make(); // kept through edits, export and import
    QString name;
    QString targetPath; // absolute, as it was when last resolved
    TargetType targetType = TargetType::file;
    std::optional<QByteArray> bookmarkData; // finds a moved target again; absent if none was made
    std::optional<KeyCombo> keyCombo;
    std::optional<KeyCombo> hideKeyCombo;
    std::int64_t sortOrder = 0;
    QDateTime createdAt; // UTC

    // What a newer version wrote and this one does not know, kept for the next save. That of a
    // combo stands under the combo's key and goes with the combo.
    QJsonObject unknownKeys;
    QJsonObject unknownComboKeys;

    bool operator==(const ShortcutItem&) const = default;
};

// What the recogniser heard, and what it is to be read as.
struct VocabAlias {
    QString heard;
    QString canonical;
    QJsonObject unknownKeys;

    bool operator==(const VocabAlias&) const = default;
};

} // namespace skipnest::model
