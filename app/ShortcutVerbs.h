// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "app/ControlSocket.h"
#include "model/ShortcutListViewModel.h"
#include "model/StorageService.h"
#include "platform/Files.h"

#include <QJsonArray>
#include <QJsonObject>

#include <variant>

namespace skipnest::app {

// The verbs that only need the list of shortcuts. The agent carries them out on its own list; the
// command line does on the file when no agent runs.

// {"path": absolute or a file's URL, "key": combo or absent, "hideKey": combo or absent}; prints
// the new record.
[[nodiscard]] ControlReply addVerb(model::ShortcutListViewModel& list, platform::Files& files,
                                   const QJsonObject& request);
// {"name": …}; prints the record that was removed.
[[nodiscard]] ControlReply removeVerb(model::ShortcutListViewModel& list,
                                      const QJsonObject& request);
// {"name": …}: an imported application may run from now on.
[[nodiscard]] ControlReply confirmVerb(model::ShortcutListViewModel& list,
                                       const QJsonObject& request);
[[nodiscard]] QJsonArray listVerb(const model::ShortcutListViewModel& list);

// {"date": "yyyy-MM-dd" or absent}: puts back a daily snapshot; prints its name. The list is to be
// loaded again afterwards.
[[nodiscard]] ControlReply restoreVerb(model::StorageService& storage, const QJsonObject& request);

// One record as scripts read it: id, name, targetPath, targetType, sortOrder, and key and hideKey
// as words (null where there is none).
[[nodiscard]] QJsonObject shortcutJson(const model::ShortcutItem& item);

// The one record that a name or an id means, or the refusal that lists those it could mean.
using NamedShortcut = std::variant<model::ShortcutItem, ControlReply>;
[[nodiscard]] NamedShortcut namedShortcut(const model::ShortcutListViewModel& list,
                                          const QJsonObject& request);
// The same for what would run its target: one that waits to be confirmed is refused.
[[nodiscard]] NamedShortcut confirmedShortcut(const model::ShortcutListViewModel& list,
                                              const QJsonObject& request);

} // namespace skipnest::app
