// SPDX-License-Identifier: Apache-2.0
#include "platform/macos/MacKeyboardLayout.h"

#include "tests/macos/ManualScheduler.h"

#include <gtest/gtest.h>

namespace skipnest::macos {
namespace {

using namespace Qt::StringLiterals;

class FakeLayout final : public KeyboardLayoutBridge {
public:
    std::u16string translate(std::uint16_t) const override { return typed; }
    void observe(std::function<void()> told) override { changed = std::move(told); }

    std::u16string typed;
    std::function<void()> changed;
};

TEST(MacKeyboardLayoutTest, OnlyKeysThatTypeHaveACharacter) {
    FakeLayout source;
    ManualScheduler scheduler;
    const MacKeyboardLayout layout(source, scheduler);
    struct Row {
        std::u16string typed;
        std::optional<QString> character;
    };
    for (const Row& row : {Row{u"ä", u"ä"_s}, Row{u"", std::nullopt}, Row{u"\x10", std::nullopt},
                           Row{u"\x7f", std::nullopt}, Row{u"\r", std::nullopt},
                           Row{u"\U0001F600", u"\U0001F600"_s}}) {
        source.typed = row.typed;
        EXPECT_EQ(layout.character(0), row.character);
    }
}

TEST(MacKeyboardLayoutTest, ABurstOfChangesIsToldOnceAndLater) {
    FakeLayout source;
    ManualScheduler scheduler;
    MacKeyboardLayout layout(source, scheduler);
    int told = 0;
    const auto observation = layout.observeChanges([&told] { ++told; });
    source.changed();
    source.changed();
    EXPECT_EQ(told, 0);
    scheduler.runPosted();
    EXPECT_EQ(told, 1);
    source.changed();
    scheduler.runPosted();
    EXPECT_EQ(told, 2);
}

} // namespace
} // namespace skipnest::macos
