// SPDX-License-Identifier: Apache-2.0
#include "platform/sim/SimKeyEvents.h"

#include <array>
#include <memory>
#include <utility>

namespace skipnest::sim {

using namespace Qt::StringLiterals;
using platform::Availability;
using platform::EventFlags;
using platform::Failure;
using platform::KeyEventListener;
using platform::KeyTap;

namespace {

struct ModifierName {
    const char16_t* name;
    std::uint64_t flag;
};

constexpr auto modifiersByName = std::to_array<ModifierName>({
    {u"control", EventFlags::control},
    {u"option", EventFlags::alternate},
    {u"shift", EventFlags::shift},
    {u"command", EventFlags::command},
    {u"function", EventFlags::function},
    {u"capsLock", EventFlags::capsLock},
});

} // namespace

QJsonArray modifierNames(EventFlags flags) {
    QJsonArray names;
    for (const ModifierName& modifier : modifiersByName)
        if (flags.contains(modifier.flag))
            names.append(QString::fromUtf16(modifier.name));
    return names;
}

std::optional<EventFlags> modifierNamed(const QString& name) {
    for (const ModifierName& modifier : modifiersByName)
        if (name == QStringView(modifier.name))
            return EventFlags{modifier.flag};
    return std::nullopt;
}

bool SimKeyEvents::isAvailable() const {
    return availability_.state != Availability::State::unavailable;
}

void SimKeyEvents::changeModifiers(const platform::ModifierEvent& event) {
    down_ = event.flags;
    listeners_.notify([&event](KeyEventListener& listener) { listener.modifiersChanged(event); });
}

void SimKeyEvents::pressKey(platform::Instant seen) {
    listeners_.notify([seen](KeyEventListener& listener) { listener.otherKeyPressed(seen); });
}

void SimKeyEvents::setAvailability(const Availability& availability) {
    availability_ = availability;
}

platform::Result<KeyTap> SimKeyEvents::listen(KeyEventListener& listener) {
    if (!isAvailable())
        return Failure{Failure::Kind::unavailable, availability_.reason};
    auto observation = std::make_shared<platform::Observation>(
        listeners_.add([&listener](const Tell& tell) { tell(listener); }));
    return KeyTap([observation] { observation->reset(); });
}

platform::Result<KeyTap> SimKeyEvents::intercept(platform::KeyInterceptor& interceptor) {
    if (!isAvailable())
        return Failure{Failure::Kind::unavailable, availability_.reason};
    if (refusesInterceptors_ || isIntercepted())
        return Failure{Failure::Kind::refused, u"Another program holds the keyboard."_s};
    interceptor_ = &interceptor;
    return KeyTap([this] { interceptor_ = nullptr; });
}

platform::KeyInterceptor::Verdict SimKeyEvents::intercepted(const platform::KeyPress& press) {
    return isIntercepted() ? interceptor_->keyPressed(press)
                           : platform::KeyInterceptor::Verdict::passed;
}

void SimKeyEvents::interruptInterceptor(platform::KeyInterceptor::Disabled why) {
    if (isIntercepted())
        interceptor_->tapWasDisabled(why);
}

platform::Outcome SimKeyEvents::post(const platform::KeyStroke& stroke) {
    if (!isAvailable())
        return Failure{Failure::Kind::unavailable, availability_.reason};
    journal_.call(u"postKey"_s,
                  {{u"code"_s, stroke.keyCode}, {u"flags"_s, modifierNames(stroke.flags)}});
    return platform::Done{};
}

} // namespace skipnest::sim
