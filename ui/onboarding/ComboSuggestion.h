// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/KeyCombo.h"

#include <QString>

#include <optional>
#include <vector>

namespace skipnest::app {
class AppDelegate;
}

namespace skipnest::ui {

// Combos that are easy to remember for something of this name, the best first: Control and Option
// with its first letter, then its other letters and digits, then the rest of the alphabet. Only
// keys of the layout at hand; a letter that it lacks counts as the one without its accent.
[[nodiscard]] std::vector<model::KeyCombo> comboCandidates(const QString& name,
                                                           const platform::KeyboardLayout& layout);

// The best of them that no shortcut has, no setting of the desktop names, and the desktop lets us
// have when asked. Nothing where all of those tried are taken.
[[nodiscard]] std::optional<model::KeyCombo> suggestedCombo(const QString& name,
                                                            app::AppDelegate& agent);

} // namespace skipnest::ui
