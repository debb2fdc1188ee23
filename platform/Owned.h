// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <utility>

namespace skipnest::platform {

// Something the desktop holds for us: a grab, a timer, a tap, an observation. Whoever has the
// object has the thing; dropping or resetting it releases it, once, on every path. Empty by
// default. `Tag` only keeps the kinds apart.
template <typename Tag> class [[nodiscard]] Owned {
public:
    Owned() = default;
    explicit Owned(std::function<void()> release) : release_(std::move(release)) {}
    Owned(Owned&& other) noexcept : release_(std::exchange(other.release_, nullptr)) {}
    Owned& operator=(Owned&& other) noexcept {
        if (this != &other) {
            reset();
            release_ = std::exchange(other.release_, nullptr);
        }
        return *this;
    }
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;
    ~Owned() { reset(); }

    void reset() {
        if (auto release = std::exchange(release_, nullptr))
            release();
    }
    explicit operator bool() const { return static_cast<bool>(release_); }

private:
    std::function<void()> release_;
};

} // namespace skipnest::platform
