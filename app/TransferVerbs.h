// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "app/ControlSocket.h"
#include "model/ShortcutListViewModel.h"
#include "model/ShortcutTransfer.h"
#include "platform/Files.h"

#include <QJsonObject>

namespace skipnest::app {

// Carried out by the agent on its own list, and by the command line on the file when no agent runs.

// {"path": absolute or absent}: writes the export there and answers the path, or answers the
// {"document"} itself as text.
[[nodiscard]] ControlReply exportVerb(model::ShortcutTransfer& transfer,
                                      const QJsonObject& request);
// {"path": absolute}: answers how many records were taken over, and the names of all that wait to
// be confirmed.
[[nodiscard]] ControlReply importVerb(model::ShortcutTransfer& transfer,
                                      const model::ShortcutListViewModel& list,
                                      platform::Files& files, const QJsonObject& request);

} // namespace skipnest::app
