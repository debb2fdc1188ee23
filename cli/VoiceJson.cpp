// SPDX-License-Identifier: Apache-2.0
#include "cli/VoiceJson.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonParseError>
#include <QStringBuilder>

#include <utility>

namespace skipnest::cli {
namespace {

using platform::Failure;
using platform::Result;
using voice::JumpTarget;
using voice::PhraseDecision;
using voice::VoiceCommand;

struct KindName {
    JumpTarget::Kind kind;
    QStringView name;
};
constexpr KindName kindNames[] = {
    {JumpTarget::Kind::app, u"app"},       {JumpTarget::Kind::file, u"file"},
    {JumpTarget::Kind::folder, u"folder"}, {JumpTarget::Kind::tab, u"tab"},
    {JumpTarget::Kind::window, u"window"},
};

QString verbName(VoiceCommand::WinVerb verb) {
    switch (verb) {
    case VoiceCommand::WinVerb::close:
        return QStringLiteral("close");
    case VoiceCommand::WinVerb::minimize:
        return QStringLiteral("minimize");
    case VoiceCommand::WinVerb::hide:
        return QStringLiteral("hide");
    case VoiceCommand::WinVerb::quit:
        return QStringLiteral("quit");
    }
    return {};
}

QString kindName(PhraseDecision::Kind kind) {
    switch (kind) {
    case PhraseDecision::Kind::empty:
        return QStringLiteral("empty");
    case PhraseDecision::Kind::space:
        return QStringLiteral("space");
    case PhraseDecision::Kind::message:
        return QStringLiteral("message");
    case PhraseDecision::Kind::steps:
        return QStringLiteral("steps");
    case PhraseDecision::Kind::jump:
        return QStringLiteral("jump");
    }
    return {};
}

struct StepWriter {
    static QJsonObject named(const char* name) {
        return {{QStringLiteral("step"), QString::fromLatin1(name)}};
    }
    QJsonObject operator()(const VoiceCommand::OpenSite& step) const {
        QJsonObject json = named("openSite");
        json.insert(QStringLiteral("url"), step.url.toString(QUrl::FullyEncoded));
        return json;
    }
    QJsonObject operator()(const VoiceCommand::Search& step) const {
        QJsonObject json = named("search");
        json.insert(QStringLiteral("query"), step.query);
        json.insert(QStringLiteral("template"),
                    step.site ? QJsonValue(*step.site) : QJsonValue(QJsonValue::Null));
        return json;
    }
    QJsonObject operator()(const VoiceCommand::Find& step) const {
        QJsonObject json = named("find");
        json.insert(QStringLiteral("text"), step.text);
        return json;
    }
    QJsonObject operator()(const VoiceCommand::Window& step) const {
        QJsonObject json = named("window");
        json.insert(QStringLiteral("verb"), verbName(step.verb));
        return json;
    }
    QJsonObject operator()(const VoiceCommand::Dictate& step) const {
        QJsonObject json = named("dictate");
        json.insert(QStringLiteral("text"), step.text);
        return json;
    }
    QJsonObject operator()(const VoiceCommand::MoveFile& step) const {
        QJsonObject json = named("moveFile");
        json.insert(QStringLiteral("name"), step.name);
        json.insert(QStringLiteral("from"), step.from);
        json.insert(QStringLiteral("to"), step.to);
        return json;
    }
};

Failure malformed(const QString& detail) {
    return {Failure::Kind::malformed, detail};
}

// Each object of an array, by its place; stops at the first that `take` says is none.
template <typename Take>
std::optional<Failure> forEachObject(const QByteArray& bytes, const Take& take) {
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError)
        return malformed(error.errorString());
    if (!document.isArray())
        return malformed(QStringLiteral("not an array"));
    const QJsonArray rows = document.array();
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const QString wrong =
            rows[i].isObject() ? take(rows[i].toObject()) : QStringLiteral("not an object");
        if (!wrong.isEmpty())
            return malformed(QStringLiteral("[%1]: %2").arg(i).arg(wrong));
    }
    return std::nullopt;
}

// Reads a text; the name of the field where it is none.
QString readText(const QJsonObject& row, const QString& field, bool isOptional, QString& text) {
    const QJsonValue value = row.value(field);
    if (value.isString() || (isOptional && value.isUndefined())) {
        text = value.toString();
        return {};
    }
    return QString(u"\"" % field % u"\" is no text");
}

QString readTarget(const QJsonObject& row, JumpTarget& target) {
    QString kind;
    for (const QString& wrong : {readText(row, QStringLiteral("title"), false, target.title),
                                 readText(row, QStringLiteral("kind"), false, kind),
                                 readText(row, QStringLiteral("subtitle"), true, target.subtitle),
                                 readText(row, QStringLiteral("owner"), true, target.owner)}) {
        if (!wrong.isEmpty())
            return wrong;
    }
    const QJsonValue hot = row.value(QStringLiteral("hot"));
    if (!hot.isBool() && !hot.isUndefined())
        return QStringLiteral("\"hot\" is neither true nor false");
    target.hot = hot.toBool();
    target.current = row.value(QStringLiteral("current")).toBool();
    for (const KindName& one : kindNames) {
        if (one.name == kind) {
            target.kind = one.kind;
            return {};
        }
    }
    return QString(u"there is no kind \"" % kind.left(40) % u"\"");
}

} // namespace

QJsonObject toJson(const VoiceCommand::Parsed& parsed) {
    QJsonArray steps;
    for (const VoiceCommand::Step& step : parsed.steps)
        steps.append(std::visit(StepWriter(), step));
    return {{QStringLiteral("target"), parsed.target}, {QStringLiteral("steps"), steps}};
}

QJsonObject toJson(const PhraseDecision& decision) {
    QJsonObject json = toJson(decision.parsed);
    for (const QString& field : {QStringLiteral("target"), QStringLiteral("steps")}) {
        const QJsonValue value = json.value(field);
        if (value.toString().isEmpty() && value.toArray().isEmpty())
            json.remove(field);
    }
    json.insert(QStringLiteral("kind"), kindName(decision.kind));
    if (decision.kind == PhraseDecision::Kind::space)
        json.insert(QStringLiteral("space"), decision.space);
    if (decision.route) {
        json.insert(QStringLiteral("app"), decision.route->app->display);
        json.insert(QStringLiteral("contact"), decision.route->contact);
        if (decision.route->message)
            json.insert(QStringLiteral("message"), *decision.route->message);
    }
    return json;
}

QString kindName(JumpTarget::Kind kind) {
    for (const KindName& one : kindNames) {
        if (one.kind == kind)
            return one.name.toString();
    }
    return {};
}

Result<std::vector<JumpTarget>> targetsFromJson(const QByteArray& bytes) {
    std::vector<JumpTarget> targets;
    const auto failure = forEachObject(
        bytes, [&](const QJsonObject& row) { return readTarget(row, targets.emplace_back()); });
    if (failure)
        return *failure;
    return targets;
}

Result<voice::UseCounts> usesFromJson(const QByteArray& bytes) {
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError)
        return malformed(error.errorString());
    if (!document.isObject())
        return malformed(QStringLiteral("not an object"));
    const QJsonObject counts = document.object();
    voice::UseCounts uses;
    for (auto entry = counts.begin(); entry != counts.end(); ++entry) {
        const qint64 count = entry->toInteger(-1);
        if (count < 0)
            return malformed(QString(u"\"" % entry.key().left(40) % u"\" is no count"));
        uses.insert(entry.key(), count);
    }
    return uses;
}

Result<std::vector<model::VocabAlias>> aliasesFromJson(const QByteArray& bytes) {
    const QJsonObject object = QJsonDocument::fromJson(bytes).object();
    const QJsonValue configured = object.value(QStringLiteral("vocabularyAliases"));
    std::vector<model::VocabAlias> aliases;
    const auto failure = forEachObject(
        configured.isArray() ? QJsonDocument(configured.toArray()).toJson() : bytes,
        [&](const QJsonObject& row) {
            model::VocabAlias& alias = aliases.emplace_back();
            const QString wrong = readText(row, QStringLiteral("heard"), false, alias.heard);
            return wrong.isEmpty()
                       ? readText(row, QStringLiteral("canonical"), false, alias.canonical)
                       : wrong;
        });
    if (failure)
        return *failure;
    return aliases;
}

} // namespace skipnest::cli
