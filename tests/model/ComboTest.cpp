// SPDX-License-Identifier: Apache-2.0
#include "Samples.h"
#include "model/ComboRules.h"
#include "model/ComboText.h"
#include "model/KeyCombo.h"
#include "platform/UsKeyboardLayout.h"

#include <gtest/gtest.h>

#include <map>

namespace skipnest::model {
namespace {

// What a German layout, and some less friendly ones, answer for a few keys.
struct OtherLayout final : platform::KeyboardLayout {
    std::map<std::uint16_t, QString> characters{
        {16, QStringLiteral("z")},    {39, QStringLiteral("ä")}, {27, QStringLiteral("ß")},
        {50, QStringLiteral("\x01")}, {33, QStringLiteral(" ")}, {30, QString()},
        {34, QStringLiteral("𐐨")},    {1, QStringLiteral("ы")},
    };
    [[nodiscard]] std::optional<QString> character(std::uint16_t keyCode) const override {
        const auto found = characters.find(keyCode);
        return found == characters.end() ? std::nullopt : std::optional(found->second);
    }
    [[nodiscard]] platform::Observation observeChanges(std::function<void()>) override {
        return {};
    }
};

TEST(KeyName, fixedNamesThenTheLayoutThenTheCode) {
    const platform::UsKeyboardLayout us;
    const OtherLayout other;
    const struct {
        const platform::KeyboardLayout& layout;
        std::uint16_t keyCode;
        QString name;
    } rows[] = {
        {us, 122, QStringLiteral("F1")},         {us, 90, QStringLiteral("F20")},
        {us, 49, QStringLiteral("Space")},       {us, 36, QStringLiteral("↩")},
        {us, 76, QStringLiteral("⌤")},           {us, 91, QStringLiteral("8\u20E3")},
        {us, 92, QStringLiteral("9\u20E3")},     {us, 89, QStringLiteral("7\u20E3")},
        {us, 75, QStringLiteral("/\u20E3")},     {us, 110, QStringLiteral("Key110")},
        {us, 65535, QStringLiteral("Key65535")}, {us, 38, QStringLiteral("J")},
        {us, 16, QStringLiteral("Y")},           {other, 16, QStringLiteral("Z")},
        {other, 39, QStringLiteral("Ä")},        {other, 27, QStringLiteral("ß")},
        {other, 50, QStringLiteral("Key50")},    {other, 33, QStringLiteral("Key33")},
        {other, 30, QStringLiteral("Key30")},    {other, 34, QStringLiteral("𐐀")},
        {other, 1, QStringLiteral("Ы")},
    };
    for (const auto& row : rows)
        EXPECT_EQ(keyName(row.keyCode, row.layout), row.name) << row.keyCode;
}

TEST(KeyCombo, everyKeyHasItsOwnName) {
    const platform::UsKeyboardLayout us;
    std::map<QString, int> names;
    for (std::uint16_t code = 0; code < 128; ++code)
        ++names[keyName(code, us).toLower()];
    for (const auto& [name, count] : names)
        EXPECT_EQ(count, 1) << name.toStdString();
}

TEST(KeyCombo, carbonBits) {
    EXPECT_EQ(ModifierFlags::command.carbonModifiers(), 0x100U);
    EXPECT_EQ((ModifierFlags::option | ModifierFlags::control).carbonModifiers(), 0x1800U);
    EXPECT_EQ((ModifierFlags::shift | ModifierFlags{1U << 20}).carbonModifiers(), 0x200U);
}

struct TextRow {
    const char* text;
    int keyCode; // -1 where it does not parse
    std::uint32_t modifiers;
    const char* named; // a word that the failure names
};

TEST(ComboText, parses) {
    const TextRow rows[] = {
        {"ctrl+opt+j", 38, 6, ""},
        {"  Ctrl +  Opt + J ", 38, 6, ""},
        {"cmd+shift+4", 21, 9, ""},
        {"SUPER+é", -1, 0, "é"},
        {"⌃⌥J", 38, 6, ""},
        {"⌥⌃j", 38, 6, ""},
        {"⌃⌥⇧⌘Space", 49, 15, ""},
        {"⌃+alt+⇧F5", 96, 14, ""},
        {"command+option+control+shift+f20", 90, 15, ""},
        {"meta+alt+key110", 110, 3, ""},
        {"f5", 96, 0, ""},
        {"F5", 96, 0, ""},
        {"esc", 53, 0, ""},
        {"KEY65535", 65535, 0, ""},
        {"key65536", -1, 0, "key65536"},
        {"key99999999999999999999", -1, 0, "key9999"},
        {"key-1", -1, 0, "key-1"},
        {"key", -1, 0, "key"},
        {"f21", -1, 0, "f21"},
        {"enter", 76, 0, ""},
        {"return", 36, 0, ""},
        {"cmd+ForwardDelete", 117, 1, ""},
        {"cmd+pagedown", 121, 1, ""},
        {"cmd+=", 24, 1, ""},
        {"cmd+-", 27, 1, ""},
        {"⌘⇥", 48, 1, ""},
        {"⌃+\u20E3", 69, 4, ""},
        {"ctrl++\u20E3", 69, 4, ""},
        {"+\u20E3", 69, 0, ""},
        {"", -1, 0, "empty"},
        {"   ", -1, 0, "empty"},
        {"+", -1, 0, "+"},
        {"cmd++", -1, 0, "cmd++"},
        {"cmd+", -1, 0, "cmd+"},
        {"+j", -1, 0, "+j"},
        {"cmd", -1, 0, "cmd"},
        {"⌘", -1, 0, "⌘"},
        {"cmd+cmd+j", -1, 0, "cmd"},
        {"cmd+super+j", -1, 0, "super"},
        {"⌘⌘J", -1, 0, "⌘"},
        {"⌘+command+J", -1, 0, "command"},
        {"j+k", -1, 0, "j"},
        {"ctrl+j+opt", -1, 0, "j"},
        {"hyper+j", -1, 0, "hyper"},
        {"cmd+jj", -1, 0, "jj"},
        {"ctrl j", -1, 0, "ctrl j"},
    };
    for (const TextRow& row : rows) {
        const auto combo = parseCombo(QString::fromUtf8(row.text));
        ASSERT_EQ(combo.ok(), row.keyCode >= 0) << row.text;
        if (combo) {
            EXPECT_EQ(combo->keyCode, row.keyCode) << row.text;
            EXPECT_EQ(combo->modifiers.rawValue, row.modifiers) << row.text;
        } else {
            EXPECT_TRUE(combo.failure().detail.contains(QString::fromUtf8(row.named)))
                << row.text << ": " << combo.failure().detail.toStdString();
        }
    }
}

// Whatever is printed can be typed back, in any case.
TEST(ComboText, readsBothRenderingsOfEveryKeyAndModifierSet) {
    const platform::UsKeyboardLayout us;
    for (std::uint16_t code = 0; code < 130; ++code) {
        for (std::uint32_t flags = 0; flags < 16; ++flags) {
            const KeyCombo combo{code, {flags}};
            for (const QString& text :
                 {displayString(combo, us), words(combo, us), words(combo, us).toLower()}) {
                const auto parsed = parseCombo(text);
                ASSERT_TRUE(parsed && *parsed == combo) << text.toStdString();
            }
        }
    }
}

TEST(ComboRules, refusalsAndWarnings) {
    const platform::UsKeyboardLayout us;
    const QString needsModifier =
        QStringLiteral("Please include at least one modifier key (Cmd, Opt, Ctrl, Shift)");
    const auto reserved = [](const char* combo) {
        return QString::fromUtf8(combo) +
               QStringLiteral(" is a system shortcut and cannot be used.");
    };
    const auto warns = [](const char* combo, const char* command) {
        return QString::fromUtf8(combo) + QStringLiteral(" is “") + QString::fromUtf8(command) +
               QStringLiteral("” in most apps. A global shortcut would override it everywhere - a "
                              "Control (⌃) or Option (⌥) shortcut is safer.");
    };
    const struct {
        const char* combo;
        QString refusal;
        QString warning;
    } rows[] = {
        {"j", needsModifier, {}},
        {"esc", {}, {}},
        {"cmd+esc", {}, {}},
        {"cmd+q", reserved("Cmd + Q"), warns("⌘Q", "Quit")},
        {"cmd+tab", reserved("Cmd + ⇥"), {}},
        {"cmd+shift+tab", {}, {}},
        {"cmd+shift+5", reserved("Shift + Cmd + 5"), {}},
        {"cmd+shift+6", {}, {}},
        {"cmd+5", {}, {}},
        {"ctrl+left", reserved("Ctrl + ←"), {}},
        {"ctrl+opt+left", {}, {}},
        {"ctrl+space", reserved("Ctrl + Space"), {}},
        {"cmd+s", {}, warns("⌘S", "Save")},
        {"cmd+shift+s", {}, warns("⌘⇧S", "Save")},
        {"cmd+shift+t", {}, warns("⌘⇧T", "New Tab")},
        {"ctrl+cmd+s", {}, {}},
        {"opt+s", {}, {}},
        {"cmd+g", {}, {}},
    };
    for (const auto& row : rows) {
        const KeyCombo combo = *parseCombo(QString::fromUtf8(row.combo));
        EXPECT_EQ(refusal(combo, us).value_or(QString()), row.refusal) << row.combo;
        EXPECT_EQ(commandWarning(combo, us).value_or(QString()), row.warning) << row.combo;
    }
}

// A command belongs to the letter, a reserved combo to the key.
TEST(ComboRules, warningsFollowTheLayoutAndRefusalsTheKey) {
    const OtherLayout german;
    EXPECT_TRUE(commandWarning({16, ModifierFlags::command}, german)
                    .value_or(QString())
                    .startsWith(QStringLiteral("⌘Z is “Undo”")));
    EXPECT_TRUE(refusal({12, ModifierFlags::command}, german));
}

} // namespace
} // namespace skipnest::model
