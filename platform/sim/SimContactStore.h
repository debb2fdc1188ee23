// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/ContactStore.h"
#include "platform/Scheduler.h"

#include <memory>
#include <utility>

namespace skipnest::sim {

// An address book with the people that a test put in.
class SimContactStore final : public platform::ContactStore {
public:
    explicit SimContactStore(platform::Scheduler& scheduler) : scheduler_(scheduler) {}

    void setPeople(std::vector<platform::Contact> people) { people_ = std::move(people); }
    void setAuthorization(Authorization authorization) { authorization_ = authorization; }

    [[nodiscard]] platform::Availability availability() const override { return {}; }
    [[nodiscard]] Authorization authorization() const override { return authorization_; }
    [[nodiscard]] platform::ContactFetch fetch(Fetched fetched) override {
        const bool mayRead = authorization_ == Authorization::authorized;
        const auto timer = std::make_shared<platform::Timer>();
        *timer = scheduler_.after({}, "sim contacts",
                                  [people = mayRead ? people_ : std::vector<platform::Contact>(),
                                   fetched = std::move(fetched)] { fetched(people); });
        return platform::ContactFetch([timer] { timer->reset(); });
    }

private:
    platform::Scheduler& scheduler_;
    std::vector<platform::Contact> people_;
    Authorization authorization_ = Authorization::authorized;
};

} // namespace skipnest::sim
