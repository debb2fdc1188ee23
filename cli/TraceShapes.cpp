// SPDX-License-Identifier: Apache-2.0
#include "cli/TraceShapes.h"

#include "model/ComboText.h"
#include "platform/sim/SimKeyEvents.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonValue>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace skipnest::cli::trace {

using namespace Qt::StringLiterals;
using platform::Failure;
using platform::Result;

namespace {

enum class Type {
    text,
    textOrNull,
    choice, // one of `choices`, separated by |
    path,
    pathOrNull,
    combo,
    comboOrNull,
    boolean,
    seconds,
    fraction,
    keyCode,
    status, // a system's error number
    pid,
    index,
    indexOrNull,
    object,
    texts,
    fractions,
    modifiers,
    windows,
    menu,
    statuses,
};
enum class Presence { required, optional };

struct Field {
    std::string_view name;
    Type type;
    Presence presence = Presence::optional;
    std::string_view choices = {};
};

constexpr std::size_t mostFields = 16;

struct Shape {
    std::string_view name;
    std::array<Field, mostFields> fields{};
};

constexpr Presence required = Presence::required;
constexpr Presence optional = Presence::optional;
constexpr std::string_view consents = "granted|denied|notDetermined";

constexpr auto shapes = std::to_array<Shape>({
    {"config", {{{"set", Type::object, required}}}},
    {"defaults", {{{"set", Type::object, required}}}},
    {"clock", {{{"utc", Type::text}, {"zone", Type::text}}}},
    {"locale",
     {{{"current", Type::text},
       {"preferred", Type::texts},
       {"supported", Type::texts},
       {"unavailable", Type::texts}}}},
    {"trust",
     {{{"accessibility", Type::boolean},
       {"screenRecording", Type::boolean},
       {"speech", Type::choice, optional, consents},
       {"microphone", Type::choice, optional, consents},
       {"contacts", Type::choice, optional, consents}}}},
    {"app",
     {{{"name", Type::text, required},
       {"bundle", Type::text},
       {"path", Type::path},
       {"pid", Type::pid},
       {"running", Type::boolean},
       {"windows", Type::windows},
       {"focused", Type::indexOrNull},
       {"menuBar", Type::index},
       {"windowMenu", Type::menu},
       {"axError", Type::statuses},
       {"document", Type::textOrNull},
       {"selection", Type::texts}}}},
    {"quit", {{{"app", Type::text, required}}}},
    {"front", {{{"app", Type::text, required}}}},
    {"shortcut",
     {{{"name", Type::text, required},
       {"path", Type::text, required},
       {"type", Type::choice, required, "application|file|folder"},
       {"key", Type::comboOrNull},
       {"hideKey", Type::comboOrNull}}}},
    {"file", {{{"path", Type::path, required}}}},
    {"folder", {{{"path", Type::path, required}}}},
    {"remove", {{{"path", Type::path, required}}}},
    {"bookmark", {{{"path", Type::path, required}, {"resolves", Type::pathOrNull, required}}}},
    {"opens", {{{"path", Type::path, required}, {"with", Type::text, required}}}},
    {"refuse", {{{"key", Type::combo}, {"status", Type::status}, {"handler", Type::status}}}},
    {"hideFails", {{{"app", Type::text, required}}}},
    {"start", {}},
    {"flags", {{{"code", Type::keyCode, required}, {"flags", Type::modifiers, required}}}},
    {"key",
     {{{"code", Type::keyCode, required},
       {"text", Type::text},
       {"flags", Type::modifiers},
       {"repeat", Type::boolean}}}},
    {"hotkey", {{{"key", Type::combo, required}}}},
    {"tap",
     {{{"which", Type::choice, required, "voice|switcher|voiceKeys"},
       {"event", Type::choice, required, "timeout|disabled|invalid|unavailable"}}}},
    {"click", {{{"outside", Type::boolean}}}},
    {"hover", {{{"index", Type::index, required}}}},
    {"pick", {{{"index", Type::index, required}}}},
    {"press", {{{"button", Type::text, required}}}},
    {"panelKeyLost", {}},
    {"tabs",
     {{{"bundle", Type::text, required},
       {"output", Type::text},
       {"error", Type::status},
       {"hang", Type::boolean},
       {"relocate", Type::choice, optional, "1|0|hang"},
       {"activate", Type::choice, optional, "ok|fail"},
       {"after", Type::seconds}}}},
    {"script", {{{"to", Type::text, required}, {"output", Type::text}, {"error", Type::status}}}},
    {"heard",
     {{{"locale", Type::text, required},
       {"text", Type::text, required},
       {"final", Type::boolean},
       {"confidence", Type::fraction},
       {"segments", Type::fractions}}}},
    {"heardError", {{{"locale", Type::text, required}, {"error", Type::text, required}}}},
    {"microphone",
     {{{"level", Type::fraction},
       {"format", Type::choice, optional, "ok|none"},
       {"startError", Type::textOrNull}}}},
    {"index", {{{"after", Type::seconds, required}}}},
    {"model",
     {{{"available", Type::boolean},
       {"intent", Type::object},
       {"cleanup", Type::text},
       {"after", Type::seconds},
       {"error", Type::text}}}},
    {"contact",
     {{{"name", Type::text, required}, {"phone", Type::textOrNull}, {"email", Type::textOrNull}}}},
    {"moveError", {{{"error", Type::textOrNull, required}}}},
    {"reply",
     {{{"path", Type::text, required},
       {"status", Type::index},
       {"body", Type::text},
       {"error", Type::text}}}},
    {"wait", {{{"until", Type::seconds, required}}}},
});

constexpr auto windowFields = std::to_array<Field>({
    {"title", Type::textOrNull},
    {"minimized", Type::boolean},
    {"subrole", Type::textOrNull},
});

constexpr auto menuFields = std::to_array<Field>({
    {"title", Type::text, required},
    {"mark", Type::textOrNull},
});

QString fromAscii(std::string_view text) {
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

bool isWhole(const QJsonValue& value, double least, double most) {
    const double number = value.toDouble(NAN);
    return number >= least && number <= most && std::floor(number) == number;
}

bool isBetween(const QJsonValue& value, double least, double most) {
    const double number = value.toDouble(NAN);
    return number >= least && number <= most;
}

// A year: what no trace needs more than, and what a clock in nanoseconds holds many times over.
constexpr double longestTrace = 366.0 * 24 * 60 * 60;
constexpr double largestIndex = 1'000'000;
// As deep and long as a home's folders ever are; every folder of a path costs an entry.
constexpr qsizetype longestPath = 1024;
constexpr qsizetype deepestPath = 64;

bool isPath(const QJsonValue& value) {
    const QString path = value.toString();
    return path.size() > 1 && path.size() <= longestPath && path.startsWith(u'/') &&
           path.count(u'/') <= deepestPath && !path.contains(QChar(0)) &&
           QDir::cleanPath(path) == path;
}

bool isCombo(const QJsonValue& value) {
    return value.isString() && model::parseCombo(value.toString()).ok();
}

template <typename Check> bool isArrayOf(const QJsonValue& value, const Check& check) {
    if (!value.isArray())
        return false;
    const QJsonArray array = value.toArray();
    return std::all_of(array.begin(), array.end(), check);
}

bool hasType(const QJsonValue& value, const Field& field);

template <std::size_t N>
bool isObjectOf(const QJsonValue& value, const std::array<Field, N>& fields) {
    if (!value.isObject())
        return false;
    const QJsonObject object = value.toObject();
    const auto known = [&fields, &object](const QString& key) {
        return std::ranges::any_of(fields, [&](const Field& field) {
            return fromAscii(field.name) == key && hasType(object[key], field);
        });
    };
    const auto there = [&object](const Field& field) {
        return field.presence == optional || object.contains(fromAscii(field.name));
    };
    const QStringList keys = object.keys();
    return std::ranges::all_of(keys, known) && std::ranges::all_of(fields, there);
}

bool isWindow(const QJsonValue& value) {
    QJsonObject window = value.toObject();
    const QJsonValue frame = window.take(u"frame"_s);
    const bool frameFits =
        frame.isUndefined() ||
        (frame.toArray().size() == 4 &&
         isArrayOf(frame, [](const QJsonValue& side) { return side.isDouble(); }));
    return value.isObject() && frameFits && isObjectOf(window, windowFields);
}

bool hasType(const QJsonValue& value, const Field& field) {
    switch (field.type) {
    case Type::text:
        return value.isString();
    case Type::textOrNull:
        return value.isString() || value.isNull();
    case Type::choice:
        return value.isString() && !value.toString().contains(u'|') &&
               fromAscii(field.choices).split(u'|').contains(value.toString());
    case Type::path:
        return isPath(value);
    case Type::pathOrNull:
        return value.isNull() || isPath(value);
    case Type::combo:
        return isCombo(value);
    case Type::comboOrNull:
        return value.isNull() || isCombo(value);
    case Type::boolean:
        return value.isBool();
    case Type::seconds:
        return isBetween(value, 0, longestTrace);
    case Type::fraction:
        return isBetween(value, 0, 1);
    case Type::keyCode:
        return isWhole(value, 0, 65535);
    case Type::status:
        return isWhole(value, -2147483648.0, 2147483647.0);
    case Type::pid:
        return isWhole(value, 1, 2147483647.0);
    case Type::index:
        return isWhole(value, 0, largestIndex);
    case Type::indexOrNull:
        return value.isNull() || isWhole(value, 0, largestIndex);
    case Type::object:
        return value.isObject();
    case Type::texts:
        return isArrayOf(value, [](const QJsonValue& text) { return text.isString(); });
    case Type::fractions:
        return isArrayOf(value, [](const QJsonValue& number) { return isBetween(number, 0, 1); });
    case Type::modifiers:
        return isArrayOf(value, [](const QJsonValue& name) {
            return sim::modifierNamed(name.toString()).has_value();
        });
    case Type::windows:
        return isArrayOf(value, isWindow);
    case Type::menu:
        return isArrayOf(value,
                         [](const QJsonValue& entry) { return isObjectOf(entry, menuFields); });
    case Type::statuses: {
        if (!value.isObject())
            return false;
        const QJsonObject statuses = value.toObject();
        return std::all_of(statuses.begin(), statuses.end(), [](const QJsonValue& status) {
            return isWhole(status, -2147483648.0, 2147483647.0);
        });
    }
    }
    return false;
}

QString expected(const Field& field) {
    switch (field.type) {
    case Type::text:
        return u"a string"_s;
    case Type::textOrNull:
        return u"a string or null"_s;
    case Type::choice:
        return u"one of "_s + fromAscii(field.choices).split(u'|').join(u", "_s);
    case Type::path:
        return u"an absolute path"_s;
    case Type::pathOrNull:
        return u"an absolute path or null"_s;
    case Type::combo:
        return u"a key combination such as \"ctrl+opt+j\""_s;
    case Type::comboOrNull:
        return u"a key combination such as \"ctrl+opt+j\", or null"_s;
    case Type::boolean:
        return u"true or false"_s;
    case Type::seconds:
        return u"a number of seconds up to a year"_s;
    case Type::fraction:
        return u"a number from 0 to 1"_s;
    case Type::keyCode:
        return u"a key code from 0 to 65535"_s;
    case Type::status:
        return u"an error number"_s;
    case Type::pid:
        return u"a process identifier above 0"_s;
    case Type::index:
        return u"a whole number from 0"_s;
    case Type::indexOrNull:
        return u"a whole number from 0, or null"_s;
    case Type::object:
        return u"an object"_s;
    case Type::texts:
        return u"a list of strings"_s;
    case Type::fractions:
        return u"a list of numbers from 0 to 1"_s;
    case Type::modifiers:
        return u"a list of control, option, shift, command, function, capsLock"_s;
    case Type::windows:
        return u"a list of windows with title, minimized, subrole, frame"_s;
    case Type::menu:
        return u"a list of menu entries with title and mark"_s;
    case Type::statuses:
        return u"an object of error numbers"_s;
    }
    return {};
}

Failure malformed(const QString& detail) {
    return {Failure::Kind::malformed, detail};
}

} // namespace

Result<QString> checkShape(const QJsonObject& event) {
    const QJsonValue name = event[u"do"_s];
    if (!name.isString())
        return malformed(u"\"do\" must be the name of an event"_s);
    const auto shape = std::ranges::find_if(
        shapes, [&name](const Shape& known) { return fromAscii(known.name) == name.toString(); });
    if (shape == shapes.end())
        return malformed(u"unknown event \"%1\""_s.arg(name.toString()));

    constexpr Field at{"at", Type::seconds};
    for (auto entry = event.begin(); entry != event.end(); ++entry) {
        if (entry.key() == u"do")
            continue;
        const auto named = [&entry](const Field& field) {
            return !field.name.empty() && fromAscii(field.name) == entry.key();
        };
        const auto found = std::ranges::find_if(shape->fields, named);
        if (found == shape->fields.end() && !named(at))
            return malformed(u"unknown field \"%1\" of \"%2\""_s.arg(entry.key(), name.toString()));
        const Field& field = found == shape->fields.end() ? at : *found;
        if (!hasType(entry.value(), field))
            return malformed(u"\"%1\" of \"%2\" must be %3"_s.arg(entry.key(), name.toString(),
                                                                  expected(field)));
    }
    for (const Field& field : shape->fields)
        if (field.presence == required && !event.contains(fromAscii(field.name)))
            return malformed(
                u"\"%1\" needs a field \"%2\""_s.arg(name.toString(), fromAscii(field.name)));
    return name.toString();
}

} // namespace skipnest::cli::trace
