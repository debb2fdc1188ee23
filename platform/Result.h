// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <utility>
#include <variant>

namespace skipnest::platform {

// Why an operation did not happen. `detail` is for people: it ends up in a log line or an error
// message, untranslated, and names the file, program or value concerned.
struct Failure {
    enum class Kind {
        notFound,    // the thing named does not exist
        refused,     // the system or another program said no
        malformed,   // outside text that does not decode
        tooLarge,    // beyond a stated limit, not looked into
        timedOut,    // no answer within the stated time
        unavailable, // this machine or session cannot do it at all
        system,      // an input/output or operating-system error
    };
    Kind kind = Kind::system;
    QString detail;

    bool operator==(const Failure&) const = default;
};

// A value or the reason why there is none. Callers look before they take: value() and failure() on
// the wrong state are our own bugs and assert.
template <typename T> class [[nodiscard]] Result {
public:
    Result(T value) : state_(std::in_place_index<0>, std::move(value)) {}
    Result(Failure failure) : state_(std::in_place_index<1>, std::move(failure)) {}

    [[nodiscard]] bool ok() const { return state_.index() == 0; }
    explicit operator bool() const { return ok(); }

    [[nodiscard]] const T& value() const& { return get(); }
    [[nodiscard]] T&& value() && { return std::move(const_cast<T&>(get())); }
    [[nodiscard]] const T& operator*() const& { return get(); }
    [[nodiscard]] const T* operator->() const { return &get(); }
    [[nodiscard]] const Failure& failure() const {
        Q_ASSERT(!ok());
        return *std::get_if<1>(&state_);
    }

private:
    const T& get() const {
        Q_ASSERT(ok());
        return *std::get_if<0>(&state_);
    }
    std::variant<T, Failure> state_;
};

struct Done {
    bool operator==(const Done&) const = default;
};
using Outcome = Result<Done>;

} // namespace skipnest::platform
