// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hotkeys/KeyRecorderViewModel.h"
#include "platform/AppInfo.h"

#include <QCoreApplication>
#include <QString>

namespace skipnest::platform {
class KeyboardLayout;
}

namespace skipnest::ui {

// What a recorder found, in the person's language and with the modifier keys as their keyboard has
// them. With glyphs the sentences are the recorder's own ("Ctrl + Opt + J is already …").
class RecorderWording {
    Q_DECLARE_TR_FUNCTIONS(RecorderWording)
public:
    using Conflict = hotkeys::KeyRecorderViewModel::Conflict;
    using Warning = hotkeys::KeyRecorderViewModel::Warning;

    RecorderWording(const platform::KeyboardLayout& layout, platform::ModifierStyle style)
        : layout_(layout), style_(style) {}

    // `keyboard` tells why the keyboard cannot be had at all, where that is so.
    [[nodiscard]] QString conflict(const Conflict& conflict,
                                   const platform::Availability& keyboard) const;
    // Empty where the warning does not hold for keyboards with these words.
    [[nodiscard]] QString warning(const Warning& warning) const;
    // What most applications do on this combo, where people write Ctrl for what runs the commands
    // of applications; the recorder itself only knows Command. Empty for other combos.
    [[nodiscard]] QString commonCommand(const model::KeyCombo& combo) const;

private:
    [[nodiscard]] QString text(const model::KeyCombo& combo) const;
    [[nodiscard]] QString sentence(const model::KeyCombo& combo,
                                   const model::KeyCombo& asCommand) const;

    const platform::KeyboardLayout& layout_;
    platform::ModifierStyle style_;
};

} // namespace skipnest::ui
