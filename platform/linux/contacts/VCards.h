// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/ContactStore.h"

#include <QByteArray>

#include <vector>

namespace skipnest::linuxdesktop {

// The people in a file of vCards, in its order. Groups of people are left out, and so are cards
// with neither a name nor a nickname. A card without an identifier has `fallbackIdentifier` and its
// place in the file. Total, as readVCardLines() is.
[[nodiscard]] std::vector<platform::Contact> readVCards(const QByteArray& file,
                                                        const QString& fallbackIdentifier);

} // namespace skipnest::linuxdesktop
