// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Availability.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <vector>

namespace skipnest::platform {

// A combo that the desktop, and not this program, acts on.
struct DesktopShortcut {
    enum class Effect {
        takesKey,   // the desktop carries out `action`; our registration may be refused
        neverFires, // registering works and yet no press ever arrives (virtual terminals)
    };
    std::uint16_t keyCode = 0; // kVK_* numbering
    std::uint32_t carbonModifiers = 0;
    QString owner;  // the program whose settings name it, as people know it: "GNOME", "openbox"
    QString action; // as that program calls it; may be empty
    Effect effect = Effect::takesKey;

    bool operator==(const DesktopShortcut&) const = default;
};

struct DesktopShortcutReading {
    std::vector<DesktopShortcut> shortcuts;
    // Tapping Super alone does something here, so that a double tap of it is a poor gesture.
    bool reactsToSuperTap = false;
    QString superTapOwner;
    QStringList sources; // the settings that were found and read, for the doctor

    bool operator==(const DesktopShortcutReading&) const = default;
};

// The combos that the desktop's own settings name. What no setting names may still be taken: only a
// trial registration tells.
class DesktopShortcuts {
public:
    virtual ~DesktopShortcuts() = default;

    [[nodiscard]] virtual Availability availability() const = 0;
    // Reads afresh, off the main thread; `done` runs on the main thread, never from inside the
    // call.
    virtual void read(std::function<void(DesktopShortcutReading)> done) = 0;
};

} // namespace skipnest::platform
