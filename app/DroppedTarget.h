// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Files.h"

#include <QString>
#include <QStringList>

#include <variant>

namespace skipnest::app {

// Why nothing that was dropped can get a shortcut. `name` is the first of it, shortened to what a
// message can hold.
struct DropRefusal {
    enum class Kind { nothing, notAFile, vanished };
    Kind kind = Kind::nothing;
    QString name;

    bool operator==(const DropRefusal&) const = default;
};

// The path of the first that is a file or folder here, each given as a URL or an absolute path.
[[nodiscard]] std::variant<QString, DropRefusal> droppedTarget(const QStringList& urls,
                                                               const platform::Files& files);

// For the command line, in English; and for the person.
[[nodiscard]] QString refusalText(const DropRefusal& refusal);
[[nodiscard]] QString translatedRefusal(const DropRefusal& refusal);

} // namespace skipnest::app
