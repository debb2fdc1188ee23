// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hotkeys/HotkeyPlan.h"
#include "platform/Diagnostics.h"
#include "platform/HotkeyBackend.h"
#include "platform/KeyboardLayout.h"

#include <cstdint>
#include <functional>
#include <map>
#include <vector>

namespace skipnest::hotkeys {

// What the hotkeys of a document do.
struct HotkeyActions {
    std::function<void(const model::ShortcutItem&)> onJump;
    std::function<void(const model::ShortcutItem&)> onHide;
    std::function<void()> onNextWindow;
    std::function<void()> onPreviousWindow;
    std::function<void()> onVoice;
};

// Keeps the system's hotkeys equal to what the document asks for: rebuilt whole after every change.
//
// A combo that the system refuses is logged and printed once and has no effect; the others go on.
// Refused combos are tried again quietly, with the id they were given, when the backend hears that
// another program ended and every 20 s, because X11 does not tell who holds a key nor when a
// program that goes on running frees it. Ids start at 1, grow over the life of the process and
// never serve two registrations.
class HotkeyManager final : public platform::HotkeyEvents {
public:
    using Action = std::function<void()>;

    // A hotkey as it stands, for lists that people and scripts read.
    struct Entry {
        std::uint32_t id = 0;
        PlannedHotkey hotkey;
        std::int32_t status = 0; // 0: bound; else why the system refused
    };

    HotkeyManager(platform::HotkeyBackend& backend, const platform::KeyboardLayout& layout,
                  platform::Diagnostics& diagnostics, platform::Scheduler& scheduler);
    ~HotkeyManager() override;

    // A combo is never registered twice: the newer action replaces the older.
    void registerHotkey(const PlannedHotkey& hotkey, Action action);
    void unregister(const model::KeyCombo& combo);
    void unregisterAll();
    void registerAll(const std::vector<model::ShortcutItem>& items,
                     const model::AppConfiguration& configuration, const HotkeyActions& actions);

    [[nodiscard]] std::vector<Entry> registered() const; // by id, which is registration order
    [[nodiscard]] std::vector<Entry> refused() const;

    platform::HotkeyHandling hotkeyPressed(platform::HotkeyIdentifier id,
                                           platform::Instant time) override;
    void refusedHotkeysMayBeFree() override;

    // When the press that is being carried out was made; nothing outside of one.
    [[nodiscard]] std::optional<platform::Instant> pressTime() const { return pressTime_; }
    // Told of every press before it is carried out.
    [[nodiscard]] platform::Observation
    observePresses(std::function<void(const PlannedHotkey&, platform::Instant)> observer) {
        return presses_.add(std::move(observer));
    }

private:
    struct Registration {
        PlannedHotkey hotkey;
        Action action;
        platform::HotkeyGrab grab;
    };
    struct Refusal {
        PlannedHotkey hotkey;
        Action action;
        std::int32_t status = 0;
    };
    struct Pending {
        std::uint32_t id;
        PlannedHotkey hotkey;
        Action action;
    };

    void installHandler();
    std::uint32_t takeIdentifier();
    void registerBatch(std::vector<Pending> batch);
    void retryRefused();

    platform::HotkeyBackend& backend_;
    const platform::KeyboardLayout& layout_;
    platform::Diagnostics& diagnostics_;
    platform::Scheduler& scheduler_;
    std::map<std::uint32_t, Registration> registrations_;
    std::map<std::uint32_t, Refusal> refused_;
    std::uint32_t nextHotKeyID_ = 1;
    bool handlerInstalled_ = false;
    std::optional<platform::Instant> pressTime_;
    platform::Observers<const PlannedHotkey&, platform::Instant> presses_;
    platform::Timer retryTimer_;
};

} // namespace skipnest::hotkeys
