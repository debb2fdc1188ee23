// SPDX-License-Identifier: Apache-2.0
#include "platform/sim/SimInstances.h"

namespace skipnest::sim {

using namespace Qt::StringLiterals;
using platform::Failure;
using platform::InstanceToken;
using platform::Result;
using platform::Termination;

void SimInstances::setOther(platform::ProcessIdentifier pid, Manners manners) {
    other_ = Other{pid, manners};
}

Result<InstanceToken> SimInstances::enterStart() {
    return InstanceToken([] {});
}

Result<InstanceToken> SimInstances::acquire() {
    if (other_)
        return Failure{Failure::Kind::refused, u"process %1 is the agent"_s.arg(other_->pid.value)};
    return InstanceToken([] {});
}

std::optional<platform::ProcessIdentifier> SimInstances::holder() const {
    return other_ ? std::optional(other_->pid) : std::nullopt;
}

platform::Outcome SimInstances::endHolder(Termination termination) {
    if (!other_)
        return Failure{Failure::Kind::notFound, u"no other process is the agent"_s};
    journal_.call(u"terminate"_s, {{u"app"_s, u"Skipnest"_s}});
    if (termination == Termination::forced || other_->manners == Manners::endsWhenAsked)
        other_.reset();
    return platform::Done{};
}

} // namespace skipnest::sim
