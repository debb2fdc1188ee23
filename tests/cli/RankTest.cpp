// SPDX-License-Identifier: Apache-2.0
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace skipnest::cli {
namespace {

using namespace Qt::StringLiterals;
using testing::HasSubstr;

class RankTest : public testing::Test {
protected:
    struct Finished {
        int status = -1;
        QByteArray out;
        std::string err;
    };
    static Finished rank(const QStringList& words, const QByteArray& input = {}) {
        QProcess process;
        process.start(QStringLiteral(SKIPNEST_BINARY), QStringList{u"rank"_s} + words);
        process.write(input);
        process.closeWriteChannel();
        EXPECT_TRUE(process.waitForFinished());
        return {process.exitCode(), process.readAllStandardOutput(),
                process.readAllStandardError().toStdString()};
    }
    QString file(const char* name, const QByteArray& content) const {
        QFile file(folder.filePath(QString::fromUtf8(name)));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(content);
        return file.fileName();
    }

    QTemporaryDir folder;
    const QString targets = file("targets.json", R"([
        {"title":"Documents","kind":"folder","subtitle":"Folder"},
        {"title":"Safari","kind":"app","new":1},
        {"title":"Safari tips","kind":"tab","owner":"Firefox","hot":true},
        {"title":"SAFARI","kind":"app"}])");
};

TEST_F(RankTest, printsEveryCandidateBestFirstWithItsWholeScore) {
    const auto scores = [](const Finished& finished) {
        std::vector<std::pair<std::string, double>> lines;
        const QJsonArray ranked = QJsonDocument::fromJson(finished.out).array();
        for (const QJsonValue& line : ranked)
            lines.emplace_back(
                (line[u"kind"].toString() + u' ' + line[u"title"].toString()).toStdString(),
                line[u"score"].toDouble());
        return lines;
    };
    using testing::DoubleEq;
    using testing::ElementsAre;
    using testing::Pair;
    EXPECT_THAT(scores(rank({u"safari"_s, u"--targets"_s, targets})),
                ElementsAre(Pair("app Safari", DoubleEq(6 + 4 + 1.2 + 2.5 - 0.12)),
                            Pair("app SAFARI", DoubleEq(6 + 4 + 1.2 + 2.5 - 0.12)),
                            Pair("tab Safari tips", DoubleEq(6 + 4 + 1 - 0.22))));
    const QString uses = file("uses.json", R"({"safari tips": 1000000})");
    EXPECT_THAT(scores(rank({u"safari tips"_s, u"--targets"_s, targets, u"--uses"_s, uses,
                             u"--limit"_s, u"1"_s})),
                ElementsAre(Pair("tab Safari tips", DoubleEq(6 + 5 + 4 + 2.5 + 1 - 0.22))));
    EXPECT_EQ(rank({u"zzz"_s, u"--targets"_s, u"-"_s}, "[]").out, "[]\n");
    EXPECT_THAT(rank({u"dokuments"_s, u"--targets"_s, targets}).out.toStdString(),
                HasSubstr("\"score\":6.04222222222222"));
}

TEST_F(RankTest, saysWhatIsWrong) {
    struct Row {
        QStringList words;
        QByteArray input;
        int status;
        const char* said;
    };
    const QString fromInput = u"--targets"_s;
    const Row rows[] = {
        {{u"x"_s}, "", 2, "--targets"},
        {{fromInput, u"-"_s}, "", 2, "missing"},
        {{u"x"_s, fromInput, u"-"_s, u"--uses"_s, u"-"_s}, "", 2, "standard input"},
        {{u"x"_s, fromInput, u"-"_s, u"--limit"_s, u"-1"_s}, "[]", 2, "--limit"},
        {{u"x"_s, fromInput, u"-"_s}, "{", 1, "skipnest: -: "},
        {{u"x"_s, fromInput, u"-"_s}, "{}", 1, "not an array"},
        {{u"x"_s, fromInput, u"-"_s}, "[7]", 1, "[0]: not an object"},
        {{u"x"_s, fromInput, u"-"_s},
         R"([{"title":"a","kind":"app"},{"kind":"app"}])",
         1,
         "[1]: \"title\""},
        {{u"x"_s, fromInput, u"-"_s}, R"([{"title":"a","kind":"App"}])", 1, "\"App\""},
        {{u"x"_s, fromInput, targets, u"--uses"_s, u"-"_s}, R"({"a":1.5})", 1, "\"a\""},
        {{u"x"_s, fromInput, folder.filePath(u"none"_s)}, "", 1, "none"},
    };
    for (const Row& row : rows) {
        const Finished finished = rank(row.words, row.input);
        EXPECT_EQ(finished.status, row.status) << row.said;
        EXPECT_THAT(finished.err, HasSubstr(row.said));
        EXPECT_EQ(finished.out, "") << row.said;
    }
}

} // namespace
} // namespace skipnest::cli
