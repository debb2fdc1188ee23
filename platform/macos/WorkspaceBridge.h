// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace skipnest::macos {

struct ApplicationRecord {
    std::int64_t pid = -1;
    std::string bundleIdentifier;
    std::string bundlePath;
    std::string name;
};

struct OpenAnswer {
    bool opened = false;
    std::string errorDomain; // of the NSError, as are the next two
    std::int64_t errorCode = 0;
    std::string errorText;
};

// What the workspace needs of AppKit. Main thread only; answers and notices arrive there too, never
// before the call that asked for them has returned. Paths are absolute.
class WorkspaceBridge {
public:
    using Opened = std::function<void(const OpenAnswer&)>;
    using Activated = std::function<void(const ApplicationRecord&)>;

    virtual ~WorkspaceBridge() = default;

    [[nodiscard]] virtual std::vector<ApplicationRecord> running() const = 0;
    [[nodiscard]] virtual std::optional<ApplicationRecord> frontmost() const = 0;
    // Empty where the bundle has none.
    [[nodiscard]] virtual std::string bundleIdentifier(const std::string& path) const = 0;
    // The path of the application; empty where nothing opens this.
    [[nodiscard]] virtual std::string defaultApplication(const std::string& path) const = 0;

    virtual void openApplication(const std::string& path, Opened opened) = 0;
    virtual void openFile(const std::string& path, Opened opened) = 0;
    // An encoded URL.
    virtual void openAddress(const std::string& address, Opened opened) = 0;

    // At most one of each.
    virtual void observeActivations(Activated activated) = 0;
    virtual void observeTerminations(std::function<void()> terminated) = 0;
};

[[nodiscard]] std::unique_ptr<WorkspaceBridge> appKitWorkspace();

} // namespace skipnest::macos
