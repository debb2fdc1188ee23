// SPDX-License-Identifier: Apache-2.0
#include "voice/VoiceIntent.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <array>
#include <cmath>
#include <optional>
#include <variant>

namespace skipnest::voice {
namespace {

using namespace Qt::StringLiterals;
using platform::Failure;
using platform::Result;

constexpr const char* instructions =
    R"(You convert a short spoken command (German or English, often mixed) into a structured intent for a macOS launcher.
The user jumps to apps / websites / folders / windows, opens chats with contacts, dictates messages, searches, switches desktops, or acts on windows.
Rules:
- Extract ONLY what was said. Never invent a contact or a message.
- Put the message text verbatim into `message`, minus the trigger verb (write / text / schreib / sag).
- `contact` is just the person's name, never filler like "als Kontakt", "to", "ihr".
- If the user only names a destination, fill `target` and leave the rest empty.
Examples:
- "geh zu Teams, suche Susanne, schreib ihr hi" -> target=Teams, contact=Susanne, message=hi
- "WhatsApp Paul texten hey ich bin gleich da" -> target=WhatsApp, contact=Paul, message=hey ich bin gleich da
- "go to chrome, open youtube and search for cats" -> target=Chrome, website=youtube, query=cats
- "Downloads Ordner" -> target=Downloads
- "close this window" -> windowAction=close
- "Schreibtisch zwei" -> space=2
- "nimm die Rechnung PDF aus dem Downloads Ordner und sortiere sie in den Ordner Rechnungen" -> moveFile=Rechnung PDF, moveFrom=Downloads, moveTo=Rechnungen
- "move the screenshot into Documents" -> moveFile=screenshot, moveTo=Documents
Never translate file or folder names; keep them exactly as spoken.)";

using TextField = QString VoiceIntent::*;
using NumberField = int VoiceIntent::*;

struct Field {
    const char* name;
    std::variant<TextField, NumberField> member;
    const char* guide; // what the model is told of it
};

// In the order in which the model fills them.
const std::array fields{
    Field{"target", &VoiceIntent::target,
          "App, website, folder, or window to jump to. Examples: WhatsApp, Chrome, Downloads, "
          "Figma, Slack, Teams. Empty if the user only acts on the current app."},
    Field{"contact", &VoiceIntent::contact,
          "Person or contact name to open a chat with, if the user wants to message someone. Only "
          "the name, e.g. Paul, Susanne. Empty if none."},
    Field{"message", &VoiceIntent::message,
          "The exact message to write to that person, verbatim, WITHOUT the trigger verb (write, "
          "text, schreib, sag). Empty if the user is not dictating a message."},
    Field{"website", &VoiceIntent::website,
          "A website to open inside the target app, e.g. youtube.com. Empty if none."},
    Field{"query", &VoiceIntent::query, "A search query to run, e.g. cats. Empty if none."},
    Field{"windowAction", &VoiceIntent::windowAction,
          "Window action, one of: close, minimize, hide, quit. Empty if none."},
    Field{"space", &VoiceIntent::space,
          "Desktop / Space number to switch to, 1 to 9. Use 0 if none."},
    Field{"moveFile", &VoiceIntent::moveFile,
          "If the user wants to MOVE or SORT a file into a folder: the file's name or short "
          "description, in the SAME LANGUAGE as spoken - never translate it (keep 'Rechnung', do "
          "not turn it into 'invoice'). Empty if not moving a file."},
    Field{"moveFrom", &VoiceIntent::moveFrom,
          "Folder to take the file FROM, verbatim in the spoken language. Empty means the "
          "Downloads folder."},
    Field{"moveTo", &VoiceIntent::moveTo,
          "Destination folder to move the file INTO, verbatim in the spoken language (keep "
          "'Rechnungen'). Empty if not moving a file."},
};

// As text, because a QJsonObject would lose the order. The names and guides hold nothing that JSON
// escapes.
QByteArray schema() {
    QByteArray properties;
    QByteArray required;
    for (const Field& field : fields) {
        const bool isText = std::holds_alternative<TextField>(field.member);
        if (!properties.isEmpty()) {
            properties += ',';
            required += ',';
        }
        const QByteArray name = QByteArray("\"") + field.name + '"';
        properties += name + ":{\"type\":" + (isText ? "\"string\"" : "\"integer\"") +
                      ",\"description\":\"" + field.guide + "\"}";
        required += name;
    }
    return "{\"title\":\"VoiceIntent\",\"type\":\"object\",\"properties\":{" + properties +
           "},\"required\":[" + required + "],\"additionalProperties\":false}";
}

Failure malformed(const QString& why) {
    return {Failure::Kind::malformed, why};
}

// What stands between the only two fences; nothing where there are not just two, or braces beside
// them. A language's name may follow the first one.
std::optional<QString> insideFence(const QString& text) {
    constexpr auto fence = "```"_L1;
    if (text.count(fence) != 2)
        return std::nullopt;
    const qsizetype open = text.indexOf(fence);
    const qsizetype close = text.lastIndexOf(fence);
    const auto hasBrace = [](QStringView part) {
        return part.contains(u'{') || part.contains(u'}');
    };
    if (hasBrace(QStringView(text).left(open)) || hasBrace(QStringView(text).mid(close + 3)))
        return std::nullopt;
    const QString inner = text.mid(open + 3, close - open - 3);
    const qsizetype brace = inner.indexOf(u'{');
    return brace < 0 ? inner : inner.mid(brace);
}

// The only pair of outer braces, its contents with it; braces inside strings are text.
std::optional<QString> onlyObject(const QString& text) {
    qsizetype begin = -1;
    qsizetype end = -1;
    int depth = 0;
    bool isInString = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (isInString) {
            if (c == u'\\')
                ++i;
            else if (c == u'"')
                isInString = false;
        } else if (c == u'"') {
            isInString = depth > 0;
        } else if (c == u'{') {
            if (depth++ == 0) {
                if (begin >= 0)
                    return std::nullopt;
                begin = i;
            }
        } else if (c == u'}') {
            if (--depth < 0)
                return std::nullopt;
            if (depth == 0)
                end = i;
        }
    }
    if (begin < 0 || depth != 0)
        return std::nullopt;
    return text.mid(begin, end - begin + 1);
}

std::optional<QJsonObject> objectOf(const QString& answer) {
    const QString trimmed = answer.trimmed();
    QJsonDocument document = QJsonDocument::fromJson(trimmed.toUtf8());
    if (document.isNull()) {
        auto part = insideFence(trimmed);
        if (!part)
            part = onlyObject(trimmed);
        document = QJsonDocument::fromJson(part.value_or(QString()).toUtf8());
    }
    return document.isObject() ? std::optional(document.object()) : std::nullopt;
}

std::optional<Failure> read(const QJsonValue& value, const Field& field, VoiceIntent& intent) {
    const QString name = QString::fromLatin1(field.name);
    if (value.isUndefined())
        return malformed(u"the answer has no \"%1\""_s.arg(name));
    if (const auto* text = std::get_if<TextField>(&field.member)) {
        if (!value.isString())
            return malformed(u"\"%1\" is no text"_s.arg(name));
        intent.*(*text) = value.toString();
        return std::nullopt;
    }
    const double number = value.toDouble(0.5);
    if (number != std::floor(number) || std::abs(number) > 1'000'000)
        return malformed(u"\"%1\" is no whole number"_s.arg(name));
    intent.*std::get<NumberField>(field.member) = static_cast<int>(number);
    return std::nullopt;
}

struct Website {
    QUrl url;
    std::optional<QString> search;
};

std::optional<Website> websiteNamed(const QString& name) {
    if (const auto url = VoiceCommand::spokenURL({name})) {
        // "httpd.conf" and its like begin as an address does, and are none.
        const bool isWeb = url->scheme() == u"https" || url->scheme() == u"http";
        return isWeb ? std::optional(Website{*url, {}}) : std::nullopt;
    }
    if (const auto site = VoiceCommand::site(name.toLower()))
        return Website{site->url, site->search};
    return std::nullopt;
}

std::optional<VoiceCommand::WinVerb> windowVerb(const QString& action) {
    using WinVerb = VoiceCommand::WinVerb;
    static constexpr std::array<std::pair<const char*, WinVerb>, 5> verbs{{
        {"close", WinVerb::close},
        {"minimize", WinVerb::minimize},
        {"minimise", WinVerb::minimize},
        {"hide", WinVerb::hide},
        {"quit", WinVerb::quit},
    }};
    const QString lower = action.toLower();
    for (const auto& [word, verb] : verbs) {
        if (lower == QLatin1StringView(word))
            return verb;
    }
    return std::nullopt;
}

} // namespace

const platform::ModelTask& VoiceIntent::task() {
    static const platform::ModelTask task{QString::fromUtf8(instructions), u"VoiceIntent"_s,
                                          schema()};
    return task;
}

Result<VoiceIntent> VoiceIntent::decode(const QString& answer) {
    const auto object = objectOf(answer);
    if (!object)
        return malformed(u"the answer is not one JSON object"_s);
    VoiceIntent intent;
    for (const Field& field : fields) {
        if (const auto failure = read(object->value(QLatin1StringView(field.name)), field, intent))
            return *failure;
    }
    return intent;
}

ParsedIntent intentToSteps(const VoiceIntent& intent) {
    ParsedIntent result{.parsed = {.target = intent.target.trimmed(), .steps = {}},
                        .contact = intent.contact.trimmed(),
                        .message = intent.message.trimmed(),
                        .space = intent.space >= 1 && intent.space <= 9 ? intent.space : 0,
                        .source = ParsedIntent::Source::model};
    auto& steps = result.parsed.steps;
    const auto website = websiteNamed(intent.website.trimmed());
    if (website)
        steps.emplace_back(VoiceCommand::OpenSite{website->url});
    if (const QString query = intent.query.trimmed(); !query.isEmpty())
        steps.emplace_back(
            VoiceCommand::Search{query, website ? website->search : std::optional<QString>()});
    if (const auto verb = windowVerb(intent.windowAction.trimmed()))
        steps.emplace_back(VoiceCommand::Window{*verb});
    if (const QString name = intent.moveFile.trimmed(); !name.isEmpty())
        steps.emplace_back(
            VoiceCommand::MoveFile{name, intent.moveFrom.trimmed(), intent.moveTo.trimmed()});
    return result;
}

} // namespace skipnest::voice
