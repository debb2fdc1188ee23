// SPDX-License-Identifier: Apache-2.0
#include "cli/Subcommands.h"

#include "app/HotkeyListing.h"
#include "model/ComboRules.h"
#include "model/ComboText.h"
#include "model/ConfigurationCoding.h"
#include "platform/UsKeyboardLayout.h"

#include <QJsonObject>
#include <QStringBuilder>

#include <algorithm>
#include <cstdio>

namespace skipnest::cli {

using model::AppConfiguration;
using model::KeyCombo;
using platform::Result;

namespace {

QJsonValue orNull(const std::optional<QString>& text) {
    return text ? QJsonValue(*text) : QJsonValue();
}

// The configuration in a file; prints why not.
std::optional<AppConfiguration> readConfiguration(const QString& path) {
    const auto bytes = readInput(path, model::largestConfiguration);
    if (!bytes)
        return std::nullopt;
    Result<AppConfiguration> decoded = model::decodeConfiguration(*bytes);
    if (!decoded) {
        (void)fail(path % u": " % decoded.failure().detail);
        return std::nullopt;
    }
    return std::move(decoded).value();
}

} // namespace

ExitStatus runCombo(const Arguments& arguments, const Context&) {
    const Result<KeyCombo> combo = model::parseCombo(arguments.positional.first());
    if (!combo) {
        (void)fail(combo.failure().detail);
        return ExitStatus::wrongUsage;
    }
    const platform::UsKeyboardLayout layout;
    printJson(QJsonObject{
        {QStringLiteral("keyCode"), combo->keyCode},
        {QStringLiteral("modifiers"), qint64(combo->modifiers.rawValue)},
        {QStringLiteral("symbols"), displayString(*combo, layout)},
        {QStringLiteral("words"), words(*combo, layout)},
        {QStringLiteral("refusal"), orNull(model::refusal(*combo, layout))},
        {QStringLiteral("warning"), orNull(model::commandWarning(*combo, layout))},
    });
    return ExitStatus::done;
}

ExitStatus runConfigCheck(const Arguments& arguments, const Context&) {
    const auto configuration = readConfiguration(arguments.positional.first());
    if (!configuration)
        return ExitStatus::failed;
    // As it would stand in the file, byte for byte.
    const QByteArray bytes = model::encodeConfiguration(*configuration);
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout);
    return ExitStatus::done;
}

ExitStatus runHotkeys(const Arguments& arguments, const Context&) {
    const auto path = arguments.value(QStringLiteral("config"));
    if (!path) {
        (void)fail(QStringLiteral("hotkeys needs --config FILE"));
        return ExitStatus::wrongUsage;
    }
    const auto configuration = readConfiguration(*path);
    if (!configuration)
        return ExitStatus::failed;
    auto items = configuration->shortcuts;
    std::ranges::stable_sort(items, {}, &model::ShortcutItem::sortOrder);
    printJson(app::hotkeysJson(app::entriesOf(hotkeys::planHotkeys(items, *configuration))));
    return ExitStatus::done;
}

} // namespace skipnest::cli
