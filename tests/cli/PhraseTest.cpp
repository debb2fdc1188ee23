// SPDX-License-Identifier: Apache-2.0
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace skipnest::cli {
namespace {

using testing::HasSubstr;

struct Finished {
    int status = -1;
    std::string out;
    std::string err;
};

QString s(const char* text) {
    return QString::fromUtf8(text);
}

Finished run(const QStringList& words) {
    QProcess process;
    process.start(QStringLiteral(SKIPNEST_BINARY), words);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished());
    return {process.exitCode(), process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString()};
}

class PhraseCommandsTest : public testing::Test {
protected:
    QString file(const char* name, const char* content) const {
        QFile file(folder.filePath(s(name)));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(content);
        return file.fileName();
    }

    QTemporaryDir folder;
};

TEST_F(PhraseCommandsTest, printWhatAPhraseIs) {
    struct Row {
        const char* command;
        const char* phrase;
        const char* printed;
    };
    const Row rows[] = {
        {"parse", "go to chrome and search cats",
         R"({"steps":[{"query":"cats","step":"search","template":null}],"target":"chrome"})"},
        {"parse", "chrome open youtube and search for cats",
         R"({"steps":[{"step":"openSite","url":"https://www.youtube.com/"},)"
         R"({"query":"cats","step":"search","template":)"
         R"("https://www.youtube.com/results?search_query=%q"}],"target":"chrome"})"},
        {"parse", "", R"({"steps":[],"target":""})"},
        {"parse", "exit and move the a to b",
         R"({"steps":[{"step":"window","verb":"close"},)"
         R"({"from":"","name":"a","step":"moveFile","to":"b"}],"target":""})"},
        {"understand", "open the downloads folder",
         R"({"kind":"jump","target":"downloads folder"})"},
        {"understand", "notes open plans and write Hi",
         R"({"kind":"steps","steps":[{"step":"find","text":"plans"},)"
         R"({"step":"dictate","text":"Hi"}],"target":"notes"})"},
        {"understand", "Schreibtisch zwei", R"({"kind":"space","space":2})"},
        {"understand", "slack go to Anna", R"({"app":"Slack","contact":"Anna","kind":"message"})"},
        {"understand", "uh um", R"({"kind":"empty"})"},
        {"route", "go to whatsapp go to Paul and write I will be there at five",
         R"({"app":"WhatsApp","contact":"Paul","message":"I will be there at five"})"},
        {"route", "teams go to Lisa", R"({"app":"Teams","contact":"Lisa","message":null})"},
    };
    for (const Row& row : rows) {
        const Finished finished = run({s(row.command), s(row.phrase)});
        EXPECT_EQ(finished.status, 0) << finished.err;
        EXPECT_EQ(finished.out, std::string(row.printed) + "\n") << row.phrase;
    }
    const Finished nobody = run({s("route"), s("go to whatsapp")});
    EXPECT_EQ(nobody.status, 1);
    EXPECT_THAT(nobody.err, HasSubstr("no messaging application"));
    EXPECT_EQ(nobody.out, "");
    EXPECT_EQ(run({s("parse")}).status, 2);
}

TEST_F(PhraseCommandsTest, understandWithWhatIsThere) {
    const QString targets = file("targets", R"([{"title":"Figma","kind":"app"},
        {"title":"Figma tips","kind":"tab","owner":"Firefox"}])");
    const QString aliases = file("aliases", R"([{"heard":"sick ma","canonical":"figma"}])");
    const Finished found =
        run({s("understand"), s("open sick ma"), s("--aliases"), aliases, s("--targets"), targets});
    EXPECT_THAT(found.out, HasSubstr(R"("target":"figma")"));
    EXPECT_THAT(found.out, HasSubstr(R"("choice":"commit")")) << found.err;
    EXPECT_THAT(found.out, HasSubstr(R"("title":"Figma")"));
    // Nothing is called that: the site is opened.
    const Finished site = run({s("understand"), s("youtube"), s("--targets"), targets});
    EXPECT_THAT(site.out, HasSubstr(R"("choice":"none")"));
    EXPECT_THAT(site.out, HasSubstr(R"("url":"https://www.youtube.com/")"));

    const Finished broken =
        run({s("understand"), s("a"), s("--aliases"), file("broken", R"([{"heard":1}])")});
    EXPECT_EQ(broken.status, 1);
    EXPECT_THAT(broken.err, HasSubstr("[0]: \"heard\" is no text"));
    EXPECT_EQ(run({s("understand"), s("a"), s("--targets"), s("/nowhere")}).status, 1);
}

} // namespace
} // namespace skipnest::cli
