// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

namespace skipnest::macos {

struct ProcessState {
    bool active = false;
    bool hidden = false;
};

enum class Activation { keyWindow, allWindows, ignoringOtherApps };
enum class RequestAnswer { taken, refused, notRunning };

// Commands to one running application by process id. Main thread only.
class ApplicationBridge {
public:
    virtual ~ApplicationBridge() = default;

    // Nothing where no application has this process id, or where it has ended.
    [[nodiscard]] virtual std::optional<ProcessState> state(std::int64_t pid) const = 0;
    [[nodiscard]] virtual RequestAnswer activate(std::int64_t pid, Activation activation) = 0;
    [[nodiscard]] virtual RequestAnswer hide(std::int64_t pid) = 0;
    [[nodiscard]] virtual RequestAnswer terminate(std::int64_t pid) = 0;
    [[nodiscard]] virtual RequestAnswer forceTerminate(std::int64_t pid) = 0;
};

[[nodiscard]] std::unique_ptr<ApplicationBridge> appKitApplications();

} // namespace skipnest::macos
