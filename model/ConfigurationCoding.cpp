// SPDX-License-Identifier: Apache-2.0
#include "model/ConfigurationCoding.h"

#include "model/LoneSurrogates.h"
#include "model/Timestamp.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonValue>

#include <array>
#include <limits>
#include <type_traits>
#include <utility>

namespace skipnest::model {
namespace {

using platform::Failure;
using platform::Result;

struct TargetTypeName {
    ShortcutItem::TargetType type;
    const char16_t* name;
};
constexpr auto targetTypeNames = std::to_array<TargetTypeName>({
    {ShortcutItem::TargetType::file, u"file"},
    {ShortcutItem::TargetType::folder, u"folder"},
    {ShortcutItem::TargetType::application, u"application"},
});

// Reads one document and remembers the first thing that is wrong with it, and where.
class Decoder {
public:
    std::optional<Failure> failure;

    void fail(const QString& path, const QString& reason) {
        if (!failure)
            failure = Failure{Failure::Kind::malformed, path + QStringLiteral(": ") + reason};
    }

    void read(const QJsonValue& value, const QString& path, bool& field) {
        if (!value.isBool())
            return fail(path, QStringLiteral("not a boolean"));
        field = value.toBool();
    }

    void read(const QJsonValue& value, const QString& path, QString& field) {
        if (!value.isString())
            return fail(path, QStringLiteral("not a string"));
        field = value.toString();
    }

    template <typename Integer>
    requires(std::is_integral_v<Integer> &&
             !std::is_same_v<Integer, bool>) void read(const QJsonValue& value, const QString& path,
                                                       Integer& field) {
        // toInteger answers its default for everything that is no whole number of 64 bits.
        const qint64 number = value.toInteger(0);
        if (number != value.toInteger(1) || !std::in_range<Integer>(number)) {
            using Limits = std::numeric_limits<Integer>;
            return fail(path, QStringLiteral("not an integer from %1 to %2")
                                  .arg(Limits::min())
                                  .arg(Limits::max()));
        }
        field = static_cast<Integer>(number);
    }

    void read(const QJsonValue& value, const QString& path, QByteArray& field) {
        // Written again and compared: that refuses missing padding, blanks, and bits that no byte
        // owns, all of which decoders tend to let pass.
        const QString text = value.toString();
        const QByteArray bytes = QByteArray::fromBase64(text.toLatin1());
        if (!value.isString() || QString::fromLatin1(bytes.toBase64()) != text)
            return fail(path, QStringLiteral("not base64"));
        field = bytes;
    }

    void read(const QJsonValue& value, const QString& path, QDateTime& field) {
        const auto time = timestampFromText(value.toString());
        if (!time)
            return fail(path, QStringLiteral("not an ISO 8601 timestamp"));
        field = *time;
    }

    void read(const QJsonValue& value, const QString& path, RecordId& field) {
        const auto id = RecordId::fromText(value.toString());
        if (!id)
            return fail(path, QStringLiteral("not a UUID"));
        field = *id;
    }

    void read(const QJsonValue& value, const QString& path, ShortcutItem::TargetType& field) {
        if (!value.isString())
            return fail(path, QStringLiteral("not a string"));
        const QString text = value.toString();
        for (const TargetTypeName& row : targetTypeNames) {
            if (text == QStringView(row.name)) {
                field = row.type;
                return;
            }
        }
        constexpr qsizetype shown = 40;
        fail(path, QStringLiteral("unknown type \"%1\"").arg(text.left(shown)));
    }

    void read(const QJsonValue& value, const QString& path, VocabAlias& field);
    void read(const QJsonValue& value, const QString& path, ShortcutItem& field);

    void read(const QJsonValue& value, const QString& path, QStringList& field) {
        readList<QString>(value, path, field);
    }
    template <typename Element>
    void read(const QJsonValue& value, const QString& path, std::vector<Element>& field) {
        readList<Element>(value, path, field);
    }

private:
    template <typename Element, typename List>
    void readList(const QJsonValue& value, const QString& path, List& field) {
        if (!value.isArray())
            return fail(path, QStringLiteral("not a list"));
        const QJsonArray array = value.toArray();
        for (qsizetype i = 0; i < array.size() && !failure; ++i) {
            Element element;
            read(array.at(i), path + QStringLiteral("[%1]").arg(i), element);
            field.push_back(std::move(element));
        }
    }
};

// One object of the document. Keys that nobody asked for are what a newer version wrote.
class ObjectReader {
public:
    ObjectReader(Decoder& decoder, const QJsonValue& value, QString path)
        : decoder_(decoder), rest_(value.toObject()), path_(std::move(path)) {
        if (!value.isObject())
            decoder_.fail(path_, QStringLiteral("not an object"));
    }

    template <typename Field> void required(const QString& key, Field& field) {
        const QJsonValue value = rest_.take(key);
        if (value.isUndefined())
            return decoder_.fail(pathOf(key), QStringLiteral("missing"));
        decoder_.read(value, pathOf(key), field);
    }

    template <typename Field> void optional(const QString& key, std::optional<Field>& field) {
        const QJsonValue value = rest_.take(key);
        if (value.isUndefined() || value.isNull())
            return;
        decoder_.read(value, pathOf(key), field.emplace());
    }

    void combo(const QString& key, std::optional<KeyCombo>& field, QJsonObject& unknownComboKeys) {
        const QJsonValue value = rest_.take(key);
        if (value.isUndefined() || value.isNull())
            return;
        ObjectReader reader(decoder_, value, pathOf(key));
        KeyCombo& combo = field.emplace();
        reader.required(QStringLiteral("keyCode"), combo.keyCode);
        reader.required(QStringLiteral("modifiers"), combo.modifiers.rawValue);
        if (!reader.rest_.isEmpty())
            unknownComboKeys.insert(key, reader.rest_);
    }

    [[nodiscard]] const QJsonObject& unknownKeys() const { return rest_; }

private:
    [[nodiscard]] QString pathOf(const QString& key) const {
        return path_.isEmpty() ? key : path_ + u'.' + key;
    }

    Decoder& decoder_;
    QJsonObject rest_;
    QString path_;
};

// One object to be written, begun with the keys that were kept for a newer version.
class ObjectWriter {
public:
    explicit ObjectWriter(const QJsonObject& unknownKeys) : object_(unknownKeys) {}

    template <typename Field> void required(const QString& key, const Field& field) {
        object_.insert(key, json(field));
    }
    template <typename Field> void optional(const QString& key, const std::optional<Field>& field) {
        if (field)
            required(key, *field);
    }
    void combo(const QString& key, const std::optional<KeyCombo>& field,
               const QJsonObject& unknownComboKeys) {
        if (!field)
            return;
        QJsonObject combo = unknownComboKeys.value(key).toObject();
        combo.insert(QStringLiteral("keyCode"), field->keyCode);
        combo.insert(QStringLiteral("modifiers"), qint64{field->modifiers.rawValue});
        object_.insert(key, combo);
    }

    [[nodiscard]] const QJsonObject& object() const { return object_; }

private:
    static QJsonValue json(bool value) { return value; }
    static QJsonValue json(std::int64_t value) { return qint64{value}; }
    static QJsonValue json(std::uint32_t value) { return qint64{value}; }
    static QJsonValue json(const QString& value) { return value; }
    static QJsonValue json(const QByteArray& value) {
        return QString::fromLatin1(value.toBase64());
    }
    static QJsonValue json(const QDateTime& value) { return timestampText(value); }
    static QJsonValue json(const RecordId& value) { return value.text(); }
    static QJsonValue json(const QStringList& value) { return QJsonArray::fromStringList(value); }
    static QJsonValue json(ShortcutItem::TargetType value) {
        return QString::fromUtf16(targetTypeNames.at(static_cast<std::size_t>(value)).name);
    }
    static QJsonValue json(const VocabAlias& value);
    static QJsonValue json(const ShortcutItem& value);
    template <typename Element> static QJsonValue json(const std::vector<Element>& value) {
        QJsonArray array;
        for (const Element& element : value)
            array.append(json(element));
        return array;
    }

    QJsonObject object_;
};

// The keys of each record, once for both directions: `Coder` is an ObjectReader or an ObjectWriter.

template <typename Coder, typename Record> void codeAlias(Coder& coder, Record& alias) {
    coder.required(QStringLiteral("heard"), alias.heard);
    coder.required(QStringLiteral("canonical"), alias.canonical);
}

template <typename Coder, typename Record> void codeItem(Coder& coder, Record& item) {
    coder.required(QStringLiteral("id"), item.id);
    coder.required(QStringLiteral("name"), item.name);
    coder.required(QStringLiteral("targetPath"), item.targetPath);
    coder.required(QStringLiteral("targetType"), item.targetType);
    coder.optional(QStringLiteral("bookmarkData"), item.bookmarkData);
    coder.combo(QStringLiteral("keyCombo"), item.keyCombo, item.unknownComboKeys);
    coder.combo(QStringLiteral("hideKeyCombo"), item.hideKeyCombo, item.unknownComboKeys);
    coder.required(QStringLiteral("sortOrder"), item.sortOrder);
    coder.required(QStringLiteral("createdAt"), item.createdAt);
}

template <typename Coder, typename Record> void codeDocument(Coder& coder, Record& document) {
    coder.required(QStringLiteral("version"), document.version);
    coder.required(QStringLiteral("shortcuts"), document.shortcuts);
    coder.required(QStringLiteral("launchAtLogin"), document.launchAtLogin);
    coder.required(QStringLiteral("menuBarIconName"), document.menuBarIconName);
    coder.optional(QStringLiteral("shiftToHide"), document.shiftToHide);
    coder.optional(QStringLiteral("hideModifierRaw"), document.hideModifierRaw);
    coder.optional(QStringLiteral("windowCycling"), document.windowCycling);
    coder.combo(QStringLiteral("nextWindowCombo"), document.nextWindowCombo,
                document.unknownComboKeys);
    coder.combo(QStringLiteral("prevWindowCombo"), document.prevWindowCombo,
                document.unknownComboKeys);
    coder.optional(QStringLiteral("themeRaw"), document.themeRaw);
    coder.optional(QStringLiteral("didOnboard"), document.didOnboard);
    coder.optional(QStringLiteral("seenOnboardingVersion"), document.seenOnboardingVersion);
    coder.optional(QStringLiteral("crashReports"), document.crashReports);
    coder.optional(QStringLiteral("preciseWindowSwitching"), document.preciseWindowSwitching);
    coder.optional(QStringLiteral("windowSwitcher"), document.windowSwitcher);
    coder.optional(QStringLiteral("quickCapture"), document.quickCapture);
    coder.optional(QStringLiteral("browserTabSwitching"), document.browserTabSwitching);
    coder.optional(QStringLiteral("voiceSearch"), document.voiceSearch);
    coder.combo(QStringLiteral("voiceCombo"), document.voiceCombo, document.unknownComboKeys);
    coder.optional(QStringLiteral("voiceLanguage"), document.voiceLanguage);
    coder.optional(QStringLiteral("vocabularyTerms"), document.vocabularyTerms);
    coder.optional(QStringLiteral("vocabularyAliases"), document.vocabularyAliases);
    coder.optional(QStringLiteral("voiceCleanup"), document.voiceCleanup);
    coder.optional(QStringLiteral("voiceTrigger"), document.voiceTrigger);
}

void Decoder::read(const QJsonValue& value, const QString& path, VocabAlias& field) {
    ObjectReader reader(*this, value, path);
    codeAlias(reader, field);
    field.unknownKeys = reader.unknownKeys();
}

void Decoder::read(const QJsonValue& value, const QString& path, ShortcutItem& field) {
    ObjectReader reader(*this, value, path);
    codeItem(reader, field);
    field.unknownKeys = reader.unknownKeys();
}

QJsonValue ObjectWriter::json(const VocabAlias& value) {
    ObjectWriter writer(value.unknownKeys);
    codeAlias(writer, value);
    return writer.object();
}

QJsonValue ObjectWriter::json(const ShortcutItem& value) {
    ObjectWriter writer(value.unknownKeys);
    codeItem(writer, value);
    return writer.object();
}

} // namespace

Result<AppConfiguration> decodeConfiguration(const QByteArray& bytes) {
    if (bytes.size() > largestConfiguration) {
        return Failure{Failure::Kind::tooLarge,
                       QStringLiteral("%1 bytes are more than the %2 that a document may have")
                           .arg(bytes.size())
                           .arg(largestConfiguration)};
    }
    if (bytes.isEmpty())
        return Failure{Failure::Kind::malformed, QStringLiteral("the document is empty")};

    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError) {
        return Failure{
            Failure::Kind::malformed,
            QStringLiteral("no JSON at byte %1: %2").arg(error.offset).arg(error.errorString())};
    }
    if (!document.isObject())
        return Failure{Failure::Kind::malformed, QStringLiteral("the document is not an object")};
    if (bytes.contains("\\ud") || bytes.contains("\\uD"))
        return fromJson(withoutLoneSurrogates(QJsonValue(document.object())).toObject());
    return fromJson(document.object());
}

Result<AppConfiguration> fromJson(const QJsonObject& document) {
    Decoder decoder;
    AppConfiguration configuration;
    ObjectReader reader(decoder, document, {});
    codeDocument(reader, configuration);
    configuration.unknownKeys = reader.unknownKeys();
    if (decoder.failure)
        return *decoder.failure;
    return configuration;
}

QByteArray encodeConfiguration(const AppConfiguration& configuration) {
    return QJsonDocument(toJson(configuration)).toJson(QJsonDocument::Indented);
}

QJsonObject toJson(const AppConfiguration& configuration) {
    ObjectWriter writer(configuration.unknownKeys);
    codeDocument(writer, configuration);
    return writer.object();
}

} // namespace skipnest::model
