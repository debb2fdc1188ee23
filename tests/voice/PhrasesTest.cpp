// SPDX-License-Identifier: Apache-2.0
// What people say and what they mean by it, from the tables in tests/phrases. A row is a phrase and
// the decision as JSON; "lands" is the title that the target ranks first.
#include "voice/JumpChoice.h"
#include "voice/PhraseDecision.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>

#include <gtest/gtest.h>

namespace skipnest::voice {
namespace {

QByteArray contentOf(const QString& name) {
    QFile file(QStringLiteral(SKIPNEST_PHRASES "/") + name);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

struct Row {
    QString place; // file and line
    QString phrase;
    QJsonObject expected;
    QString knownReason; // why the tables cannot yield it
};

void PrintTo(const Row& row, std::ostream* stream) {
    *stream << row.place.toStdString();
}

using Pairs = std::vector<std::array<QString, 3>>; // place, text before the tab, text after it

Pairs pairsOf(const QString& name) {
    Pairs pairs;
    const QStringList lines = QString::fromUtf8(contentOf(name)).split(u'\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString& line = lines[i];
        if (line.isEmpty() || line.startsWith(u"# "))
            continue;
        const qsizetype tab = line.lastIndexOf(u'\t');
        pairs.push_back(
            {QStringLiteral("%1:%2").arg(name).arg(i + 1), line.left(tab), line.mid(tab + 1)});
    }
    return pairs;
}

std::vector<Row> allRows() {
    QMap<QString, QString> reasons;
    for (const auto& [place, phrase, reason] : pairsOf(QStringLiteral("known.tsv")))
        reasons.insert(phrase, reason);
    std::vector<Row> rows;
    const QStringList files =
        QDir(QStringLiteral(SKIPNEST_PHRASES)).entryList({QStringLiteral("*.tsv")});
    for (const QString& file : files) {
        if (file == u"known.tsv")
            continue;
        for (const auto& [place, phrase, json] : pairsOf(file))
            rows.push_back({place, phrase, QJsonDocument::fromJson(json.toUtf8()).object(),
                            reasons.take(phrase)});
    }
    for (auto left = reasons.begin(); left != reasons.end(); ++left)
        rows.push_back({QStringLiteral("known.tsv"), left.key(), {}, {}});
    return rows;
}

const std::vector<JumpTarget>& targets() {
    static const std::vector<JumpTarget> all = [] {
        std::vector<JumpTarget> made;
        const QStringList kinds{QStringLiteral("app"), QStringLiteral("file"),
                                QStringLiteral("folder"), QStringLiteral("tab"),
                                QStringLiteral("window")};
        const QJsonArray rows =
            QJsonDocument::fromJson(contentOf(QStringLiteral("targets.json"))).array();
        for (const QJsonValue& row : rows) {
            JumpTarget& target = made.emplace_back();
            target.title = row[u"title"].toString();
            target.subtitle = row[u"subtitle"].toString();
            target.owner = row[u"owner"].toString();
            target.kind = static_cast<JumpTarget::Kind>(kinds.indexOf(row[u"kind"].toString()));
            target.hot = row[u"hot"].toBool();
        }
        return made;
    }();
    return all;
}

// Compares one decision with one row; collects what differs.
class Comparison {
public:
    Comparison(const Row& row) : expected_(row.expected), decision_(understand(row.phrase)) {
        settle();
        compare(QStringLiteral("kind"), kind(), text(u"kind"));
        compare(QStringLiteral("lands"), landed_, text(u"lands"));
        compareSteps();
        compareRoute();
        compare(QStringLiteral("space"), QString::number(decision_.space),
                QString::number(expected_[u"space"].toInt()));
    }

    const QStringList& differences() const { return differences_; }

private:
    // Looks the target up, as a session does.
    void settle() {
        if (decision_.parsed.target.isEmpty())
            return;
        static const TargetScorer scorer(targets());
        const JumpChoice choice =
            JumpChoice::forSpoken(decision_.parsed.target, decision_.site, targets(), scorer, {});
        if (!choice.candidates.empty())
            landed_ = targets()[choice.candidates.front().target].title;
        else if (decision_.site)
            decision_ = decision_.openingSite();
        else
            landed_ = QStringLiteral("nothing named \"%1\"").arg(decision_.parsed.target);
    }

    QString text(QStringView field) const { return expected_[field].toString(); }

    void compare(const QString& what, const QString& actual, const QString& wanted) {
        if (actual != wanted)
            differences_.append(QStringLiteral("%1: \"%2\", not \"%3\"").arg(what, actual, wanted));
    }

    QString kind() const {
        static const QStringList names{QStringLiteral("empty"), QStringLiteral("space"),
                                       QStringLiteral("message"), QStringLiteral("steps"),
                                       QStringLiteral("jump")};
        return names[static_cast<qsizetype>(decision_.kind)];
    }

    void compareSteps() {
        QStringList actual;
        for (const VoiceCommand::Step& step : decision_.parsed.steps)
            actual.append(std::visit(*this, step));
        QStringList wanted;
        const QJsonArray steps = expected_[u"steps"].toArray();
        for (const QJsonValue& step : steps)
            wanted.append(wantedStep(step.toObject()));
        compare(QStringLiteral("steps"), actual.join(u" | "), wanted.join(u" | "));
    }

    static QString line(const char* step, const QStringList& fields) {
        return QStringLiteral("%1 [%2]").arg(QString::fromLatin1(step), fields.join(u", "));
    }

    static std::optional<VoiceCommand::Site> siteOf(const QJsonObject& step) {
        return VoiceCommand::site(step[u"site"].toString());
    }

    static QString wantedStep(const QJsonObject& step) {
        const auto field = [&](QStringView name) { return step[name].toString(); };
        const QString name = field(u"step");
        const auto site = siteOf(step);
        if (name == u"openSite")
            return line("openSite", {site ? site->url.toString() : QUrl(field(u"url")).toString()});
        if (name == u"search")
            return line("search", {field(u"query").toLower(),
                                   site ? site->search.value_or(QString()) : QString()});
        if (name == u"window")
            return line("window", {field(u"verb")});
        if (name == u"moveFile")
            return line("moveFile", {field(u"name").toLower(), field(u"from").toLower(),
                                     field(u"to").toLower()});
        return line(qPrintable(name), {field(u"text")});
    }

public: // one step as text, for std::visit
    QString operator()(const VoiceCommand::OpenSite& step) const {
        return line("openSite", {step.url.toString()});
    }
    QString operator()(const VoiceCommand::Search& step) const {
        return line("search", {step.query.toLower(), step.site.value_or(QString())});
    }
    QString operator()(const VoiceCommand::Find& step) const { return line("find", {step.text}); }
    QString operator()(const VoiceCommand::Window& step) const {
        static const QStringList verbs{QStringLiteral("close"), QStringLiteral("minimize"),
                                       QStringLiteral("hide"), QStringLiteral("quit")};
        return line("window", {verbs[static_cast<qsizetype>(step.verb)]});
    }
    QString operator()(const VoiceCommand::Dictate& step) const {
        return line("dictate", {step.text});
    }
    QString operator()(const VoiceCommand::MoveFile& step) const {
        return line("moveFile", {step.name.toLower(), step.from.toLower(), step.to.toLower()});
    }

private:
    void compareRoute() {
        const auto& route = decision_.route;
        const QString app = text(u"app");
        // Any name of the application will do: "Microsoft Teams" is Teams.
        const bool isSameApp =
            route ? route->app->display == app || route->app->names.contains(app.toLower())
                  : app.isEmpty();
        if (!isSameApp)
            compare(QStringLiteral("app"), route ? route->app->display : QString(), app);
        compare(QStringLiteral("contact"), route ? route->contact.toLower() : QString(),
                text(u"contact").toLower());
        compare(QStringLiteral("message"), route ? route->message.value_or(QString()) : QString(),
                text(u"message"));
    }

    const QJsonObject expected_;
    PhraseDecision decision_;
    QString landed_;
    QStringList differences_;
};

class PhrasesTest : public testing::TestWithParam<Row> {};

TEST_P(PhrasesTest, meansWhatTheTableSays) {
    const Row& row = GetParam();
    ASSERT_FALSE(row.expected.isEmpty()) << qPrintable(row.place) << ": no row, or none with JSON";
    const QString differences = Comparison(row).differences().join(u"; ");
    if (row.knownReason.isEmpty()) {
        EXPECT_TRUE(differences.isEmpty())
            << row.place.toStdString() << ": \"" << row.phrase.toStdString() << "\"\n"
            << differences.toStdString();
        return;
    }
    EXPECT_FALSE(differences.isEmpty())
        << row.phrase.toStdString() << ": understood now, and still in known.tsv";
    std::cout << "not understood: " << row.phrase.toStdString() << " ("
              << row.knownReason.toStdString() << ")\n";
}

// The phrase as far as a test may be named by it.
std::string caseName(const testing::TestParamInfo<Row>& info) {
    QString name;
    for (const QChar c : info.param.place + u'_' + info.param.phrase.left(60))
        name += c.unicode() < 0x80 && c.isLetterOrNumber() ? c : QChar(u'_');
    return name.toStdString() + "_" + std::to_string(info.index);
}

INSTANTIATE_TEST_SUITE_P(Phrases, PhrasesTest, testing::ValuesIn(allRows()), caseName);

TEST(PhraseTablesTest, areThere) {
    EXPECT_GE(allRows().size(), 250U);
    EXPECT_GT(targets().size(), 50U);
}

} // namespace
} // namespace skipnest::voice
