// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/InstanceLock.h"
#include "platform/sim/Journal.h"

#include <memory>
#include <optional>

namespace skipnest::sim {

// Whether another copy of the program runs, and whose sockets call.
class SimInstances final : public platform::InstanceLock, public platform::PeerCredentials {
public:
    enum class Manners { endsWhenAsked, endsWhenForced };

    explicit SimInstances(Journal& journal) : journal_(journal) {}

    // Another process is the agent already.
    void setOther(platform::ProcessIdentifier pid, Manners manners);
    void setSameUser(bool same) { sameUser_ = same; }

    [[nodiscard]] platform::Result<platform::InstanceToken> enterStart() override;
    [[nodiscard]] platform::Result<platform::InstanceToken> acquire() override;
    [[nodiscard]] std::optional<platform::ProcessIdentifier> holder() const override;
    platform::Outcome endHolder(platform::Termination termination) override;
    [[nodiscard]] bool isSameUser(std::intptr_t) const override { return sameUser_; }

private:
    struct Other {
        platform::ProcessIdentifier pid;
        Manners manners = Manners::endsWhenAsked;
    };

    Journal& journal_;
    std::optional<Other> other_;
    bool sameUser_ = true;
};

} // namespace skipnest::sim
