// SPDX-License-Identifier: Apache-2.0
#include "model/ConfigurationCoding.h"
#include "Samples.h"
#include "model/Timestamp.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <limits>

namespace skipnest::model {
namespace {

using test::fullDocument;
using test::smallestDocument;

// The document that differs from the full one in one place.
QByteArray edited(const char* from, const QByteArray& to) {
    QByteArray document = fullDocument();
    EXPECT_EQ(document.count(from), 1) << from;
    return document.replace(from, to);
}

TEST(Configuration, everyKeyIsReadAndWrittenBack) {
    const auto document = decodeConfiguration(fullDocument());
    ASSERT_TRUE(document) << document.failure().detail.toStdString();

    QJsonObject expected = QJsonDocument::fromJson(fullDocument()).object();
    QJsonArray shortcuts = expected.value(u"shortcuts").toArray();
    QJsonObject second = shortcuts.at(1).toObject();
    second.insert(QStringLiteral("createdAt"), QStringLiteral("2026-07-24T09:30:00Z"));
    shortcuts.replace(1, second);
    expected.insert(QStringLiteral("shortcuts"), shortcuts);
    EXPECT_EQ(QJsonDocument(toJson(*document)).toJson().toStdString(),
              QJsonDocument(expected).toJson().toStdString());

    const auto again = decodeConfiguration(encodeConfiguration(*document));
    ASSERT_TRUE(again);
    EXPECT_TRUE(*again == *document);
    EXPECT_EQ(document->shortcuts[0].bookmarkData, QByteArray("book"));
    EXPECT_EQ(document->shortcuts[1].sortOrder, std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(document->seenOnboardingVersion, 9007199254740993);
}

TEST(Configuration, textIsPrettySortedAndComplete) {
    AppConfiguration configuration;
    configuration.windowCycling = true;
    configuration.hideModifierRaw = 4;
    EXPECT_EQ(encodeConfiguration(configuration).toStdString(), R"({
    "hideModifierRaw": 4,
    "launchAtLogin": false,
    "menuBarIconName": "skipnest",
    "shortcuts": [
    ],
    "version": 1,
    "windowCycling": true
}
)");
}

TEST(Configuration, absentAndNullOptionalsAreTheDefaults) {
    QByteArray nulls = smallestDocument();
    nulls.chop(1);
    for (const char* key : {"shiftToHide", "hideModifierRaw", "windowCycling", "nextWindowCombo",
                            "themeRaw", "windowSwitcher", "browserTabSwitching", "voiceSearch",
                            "voiceCombo", "vocabularyTerms", "vocabularyAliases"})
        nulls += QByteArray(",\"") + key + "\":null";
    nulls += '}';
    for (const QByteArray& bytes : {smallestDocument(), nulls}) {
        const auto document = decodeConfiguration(bytes);
        ASSERT_TRUE(document) << document.failure().detail.toStdString();
        EXPECT_TRUE(*document == AppConfiguration());
        EXPECT_TRUE(document->shiftToHideOrDefault());
        EXPECT_EQ(document->hideModifierOrDefault(), ModifierFlags::shift);
        EXPECT_FALSE(document->windowCyclingOrDefault());
        EXPECT_EQ(document->nextWindowComboOrDefault(), (KeyCombo{124, {6}}));
        EXPECT_EQ(document->prevWindowComboOrDefault(), (KeyCombo{123, {6}}));
        EXPECT_EQ(document->voiceComboOrDefault(), (KeyCombo{9, {6}}));
        EXPECT_EQ(document->themeOrDefault(), Theme::brand);
        EXPECT_TRUE(document->windowSwitcherOrDefault() && document->voiceSearchOrDefault() &&
                    document->browserTabSwitchingOrDefault());
    }
}

struct FaultRow {
    const char* from;
    const char* to;
    const char* path; // where the failure says it is; "" where the document still decodes
};

class ConfigurationFault : public testing::TestWithParam<FaultRow> {};

TEST_P(ConfigurationFault, failsTheWholeDocumentAndSaysWhere) {
    const auto document = decodeConfiguration(edited(GetParam().from, GetParam().to));
    const QString path = QString::fromUtf8(GetParam().path);
    ASSERT_EQ(document.ok(), path.isEmpty())
        << (document ? "" : document.failure().detail.toStdString());
    if (!document) {
        EXPECT_EQ(document.failure().detail.section(QStringLiteral(": "), 0, 0), path);
    }
}

INSTANTIATE_TEST_SUITE_P(
    , ConfigurationFault,
    testing::Values(
        FaultRow{"\"version\": 1,", "", "version"},
        FaultRow{"\"version\": 1", "\"version\": null", "version"},
        FaultRow{"\"version\": 1", "\"version\": 3.0", ""},
        FaultRow{"\"version\": 1", "\"version\": 1e3", ""},
        FaultRow{"\"version\": 1", "\"version\": 3.5", "version"},
        FaultRow{"\"version\": 1", "\"version\": true", "version"},
        FaultRow{"\"version\": 1", "\"version\": \"3\"", "version"},
        FaultRow{"\"menuBarIconName\": \"star\",", "", "menuBarIconName"},
        FaultRow{"\"menuBarIconName\": \"star\"", "\"menuBarIconName\": 1", "menuBarIconName"},
        FaultRow{"\"launchAtLogin\": true", "\"launchAtLogin\": 1", "launchAtLogin"},
        FaultRow{"\"shortcuts\": [", "\"shortcuts\": {}, \"x\": [", "shortcuts"},
        FaultRow{"\"shortcuts\": [", "\"shortcuts\": [7,", "shortcuts[0]"},
        FaultRow{"\"folder\"", "\"link\"", "shortcuts[0].targetType"},
        FaultRow{"\"folder\"", "\"Folder\"", "shortcuts[0].targetType"},
        FaultRow{"\"application\"", "2", "shortcuts[1].targetType"},
        FaultRow{"\"name\": \"\",", "", "shortcuts[1].name"},
        FaultRow{"6f9619ff-8b86", "{6f9619ff-8b86", "shortcuts[0].id"},
        FaultRow{"6f9619ff-8b86", "6f9619ff08b86", "shortcuts[0].id"},
        FaultRow{"6f9619ff-8b86", "6f9619fg-8b86", "shortcuts[0].id"},
        FaultRow{"\"Ym9vaw==\"", "\"Ym9vaw\"", "shortcuts[0].bookmarkData"},
        FaultRow{"\"Ym9vaw==\"", "\"Ym9v aw==\"", "shortcuts[0].bookmarkData"},
        FaultRow{"\"Ym9vaw==\"", "\"Ym9vax==\"", "shortcuts[0].bookmarkData"},
        FaultRow{"\"Ym9vaw==\"", "\"Ym9-aw==\"", "shortcuts[0].bookmarkData"},
        FaultRow{"\"Ym9vaw==\"", "\"Ym9vaw==ł\"", "shortcuts[0].bookmarkData"},
        FaultRow{"\"Ym9vaw==\"", "[]", "shortcuts[0].bookmarkData"},
        FaultRow{"\"Ym9vaw==\"", "\"\"", ""}, FaultRow{"\"Ym9vaw==\"", "null", ""},
        FaultRow{"\"keyCode\": 38", "\"keyCode\": 65536", "shortcuts[0].keyCombo.keyCode"},
        FaultRow{"\"keyCode\": 38", "\"keyCode\": -1", "shortcuts[0].keyCombo.keyCode"},
        FaultRow{"\"keyCode\": 38,", "", "shortcuts[0].keyCombo.keyCode"},
        FaultRow{"4294967295", "4294967296", "shortcuts[0].hideKeyCombo.modifiers"},
        FaultRow{"{\"keyCode\": 2, \"modifiers\": 2}", "[]", "prevWindowCombo"},
        FaultRow{"-9223372036854775808", "-9300000000000000000", "shortcuts[0].sortOrder"},
        FaultRow{"9223372036854775807", "9223372036854775808", "shortcuts[1].sortOrder"},
        FaultRow{"\"shiftToHide\": false", "\"shiftToHide\": 0", "shiftToHide"},
        FaultRow{"\"hideModifierRaw\": 2", "\"hideModifierRaw\": -2", "hideModifierRaw"},
        FaultRow{"\"Skipnest\", \"\"", "\"Skipnest\", 5", "vocabularyTerms[1]"},
        FaultRow{"\"heard\": \"Cloud\", ", "", "vocabularyAliases[0].heard"},
        FaultRow{"\"themeRaw\": \"sepia\"", "\"themeRaw\": \"a\", \"themeRaw\": \"dark\"", ""},
        FaultRow{"star", "\\ud83d", ""}, FaultRow{"star", "\\u0000", ""},
        FaultRow{"\"futureSetting\"", "\"\\ude00\"", ""},
        FaultRow{"T11:30:00+02:00", "T11:30:00", "shortcuts[1].createdAt"}));

TEST(Configuration, timestamps) {
    const struct {
        const char* text;
        const char* written; // null where it is refused
    } rows[] = {
        {"2026-07-24T09:30:00Z", "2026-07-24T09:30:00Z"},
        {"2026-07-24T00:30:00+02:00", "2026-07-23T22:30:00Z"},
        {"2026-07-24T09:30:00.5-05:30", "2026-07-24T15:00:00.500Z"},
        {"2026-07-24T09:30:00.000Z", "2026-07-24T09:30:00Z"},
        {"2026-07-24T09:30:00.123456789Z", "2026-07-24T09:30:00.123Z"},
        {"2024-02-29T23:59:59Z", "2024-02-29T23:59:59Z"},
        {"0001-01-01T00:00:00Z", "0001-01-01T00:00:00Z"},
        {"9999-12-31T23:59:59Z", "9999-12-31T23:59:59Z"},
        {"2026-02-29T00:00:00Z", nullptr},
        {"2026-07-24T24:00:00Z", nullptr},
        {"2026-07-24T09:30:60Z", nullptr},
        {"0000-01-01T00:00:00Z", nullptr},
        {"0001-01-01T00:00:00+01:00", nullptr},
        {"9999-12-31T23:59:59-01:00", nullptr},
        {"2026-07-24 09:30:00Z", nullptr},
        {"2026-07-24T09:30:00z", nullptr},
        {"2026-07-24T09:30:00", nullptr},
        {"2026-07-24T09:30Z", nullptr},
        {"2026-07-24T09:30:00.Z", nullptr},
        {"2026-07-24T09:30:00+0200", nullptr},
        {"2026-07-24T09:30:00+24:00", nullptr},
        {"2026-07-24T09:30:00Z\n", nullptr},
        {" 2026-07-24T09:30:00Z", nullptr},
        {"٢٠٢٦-07-24T09:30:00Z", nullptr},
        {"", nullptr},
    };
    for (const auto& row : rows) {
        const auto time = timestampFromText(QString::fromUtf8(row.text));
        ASSERT_EQ(time.has_value(), row.written != nullptr) << row.text;
        if (time) {
            EXPECT_EQ(timestampText(*time).toStdString(), row.written) << row.text;
        }
    }
}

TEST(Configuration, bytesThatAreNoDocument) {
    using Kind = platform::Failure::Kind;
    QByteArray deep(100'000, '[');
    const struct {
        QByteArray bytes;
        Kind kind;
    } rows[] = {
        {"", Kind::malformed},
        {" \n", Kind::malformed},
        {"[]", Kind::malformed},
        {"null", Kind::malformed},
        {"{}", Kind::malformed},
        {QByteArray("\0\0\0", 3), Kind::malformed},
        {deep, Kind::malformed},
        {smallestDocument() + "x", Kind::malformed},
        {smallestDocument().replace("skipnest", "\xff\xfe"), Kind::malformed},
        {QByteArray(largestConfiguration + 1, ' '), Kind::tooLarge},
        {QByteArray(largestConfiguration, ' '), Kind::malformed},
    };
    for (const auto& row : rows) {
        const auto document = decodeConfiguration(row.bytes);
        ASSERT_FALSE(document) << row.bytes.left(40).toStdString();
        EXPECT_EQ(document.failure().kind, row.kind);
        EXPECT_FALSE(document.failure().detail.isEmpty());
    }
    EXPECT_TRUE(decodeConfiguration("\xef\xbb\xbf" + smallestDocument())) << "byte order mark";
}

// Half of a document must never pass for a whole one: what is then saved would lose the rest.
TEST(Configuration, cutAnywhereItDoesNotDecode) {
    const QByteArray whole = fullDocument();
    for (qsizetype length = 0; length < whole.size(); ++length)
        ASSERT_FALSE(decodeConfiguration(whole.left(length))) << length;
}

TEST(Configuration, anyFlippedBitIsRefusedOrSurvivesTheNextSave) {
    const QByteArray whole = fullDocument();
    int decoded = 0;
    for (qsizetype i = 0; i < whole.size() * 8; ++i) {
        QByteArray bytes = whole;
        bytes[i / 8] = static_cast<char>(bytes.at(i / 8) ^ (1 << (i % 8)));
        if (const auto document = decodeConfiguration(bytes)) {
            ++decoded;
            const auto again = decodeConfiguration(encodeConfiguration(*document));
            ASSERT_TRUE(again && *again == *document) << "bit " << i;
        }
    }
    EXPECT_GT(decoded, 0);
}

TEST(Configuration, unknownComboKeysGoWithTheirCombo) {
    auto document = *decodeConfiguration(fullDocument());
    document.shortcuts[0].keyCombo->keyCode = 1;
    document.nextWindowCombo.reset();
    const QJsonObject written = toJson(document);
    EXPECT_EQ(written.value(u"shortcuts")[0][u"keyCombo"][u"side"].toString(), u"left");
    EXPECT_FALSE(written.contains(u"nextWindowCombo"));
}

TEST(RecordId, comparesWithoutCaseAndKeepsTheText) {
    const QString lower = QStringLiteral("6f9619ff-8b86-d011-b42d-00c04fc964ff");
    const auto a = RecordId::fromText(lower);
    const auto b = RecordId::fromText(lower.toUpper());
    ASSERT_TRUE(a && b);
    EXPECT_TRUE(*a == *b);
    EXPECT_EQ(qHash(*a), qHash(*b));
    EXPECT_EQ(a->text(), lower);
    const RecordId made = RecordId::make();
    EXPECT_EQ(made.text(), made.text().toUpper());
    EXPECT_TRUE(RecordId::fromText(made.text()));
    EXPECT_FALSE(made == RecordId::make());
}

} // namespace
} // namespace skipnest::model
