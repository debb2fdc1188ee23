// SPDX-License-Identifier: Apache-2.0
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QUrl>

#include <gmock/gmock.h>

namespace skipnest::cli {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

struct Finished {
    int status = -1;
    std::string out;
    std::string err;
};

// The real program with a home of its own, no display and no agent.
class CommandLineTest : public testing::Test {
protected:
    Finished run(const QStringList& words, const QByteArray& input = {}) const {
        QProcess process;
        QProcessEnvironment environment;
        environment.insert(QStringLiteral("HOME"), home.path());
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), home.path());
        environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
        environment.insert(QStringLiteral("PATH"), qEnvironmentVariable("PATH"));
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(SKIPNEST_BINARY), words);
        process.write(input);
        process.closeWriteChannel();
        EXPECT_TRUE(process.waitForFinished());
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                process.readAllStandardOutput().toStdString(),
                process.readAllStandardError().toStdString()};
    }
    QString file(const char* name, const QByteArray& content) const {
        const QString path = home.filePath(QString::fromUtf8(name));
        QFile file(path);
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(content);
        return path;
    }

    QTemporaryDir home;
};

const QByteArray emptyDocument =
    R"({"version":1,"shortcuts":[],"launchAtLogin":false,"menuBarIconName":"skipnest"})";

TEST_F(CommandLineTest, wrongUsageSaysWhatAndEndsWithTwo) {
    struct Row {
        QStringList words;
        const char* said;
    };
    const auto s = [](const char* text) { return QString::fromUtf8(text); };
    const Row rows[] = {
        {{s("fly")}, "no subcommand \"fly\""},
        {{s("combo")}, "an argument is missing"},
        {{s("combo"), s("a"), s("b")}, "too many arguments, from \"b\" on"},
        {{s("combo"), s("ctrl+qux")}, "qux"},
        {{s("combo"), s("ctrl+ctrl+j")}, "ctrl"},
        {{s("combo"), s("")}, "skipnest: "},
        {{s("hotkeys")}, "--config"},
        {{s("hotkeys"), s("--config")}, "--config needs a value"},
        {{s("stats"), s("--on"), s("2026-2-3")}, "yyyy-MM-dd"},
        {{s("stats"), s("--on"), s("2026-02-30")}, "yyyy-MM-dd"},
        {{s("list"), s("--quick")}, "unknown option \"--quick\""},
        {{s("run"), s("fast")}, "run does not understand \"fast\""},
        {{s("--record")}, "run does not understand \"--record\""},
        {{s("help"), s("fly")}, "no subcommand \"fly\""},
    };
    for (const Row& row : rows) {
        const Finished finished = run(row.words);
        EXPECT_EQ(finished.status, 2) << row.words.join(u' ').toStdString();
        EXPECT_THAT(finished.err, HasSubstr(row.said));
        EXPECT_EQ(finished.out, "");
    }
}

TEST_F(CommandLineTest, comboIsPrintedWithWhatSpeaksAgainstIt) {
    EXPECT_EQ(run({QStringLiteral("combo"), QStringLiteral("⌃⌥J")}).out,
              "{\"keyCode\":38,\"modifiers\":6,\"refusal\":null,\"symbols\":\"⌃⌥J\","
              "\"warning\":null,\"words\":\"Ctrl + Opt + J\"}\n");
    const Finished refused = run({QStringLiteral("combo"), QStringLiteral("cmd+Q")});
    EXPECT_EQ(refused.status, 0);
    EXPECT_THAT(refused.out,
                HasSubstr("\"refusal\":\"Cmd + Q is a system shortcut and cannot be used.\""));
}

TEST_F(CommandLineTest, configurationIsCheckedFromFileAndStandardInput) {
    const Finished good =
        run({QStringLiteral("config"), QStringLiteral("check"), file("good.json", emptyDocument)});
    EXPECT_EQ(good.status, 0);
    EXPECT_THAT(good.out, StartsWith("{\n    \"launchAtLogin\": false,\n"));
    const Finished bad =
        run({QStringLiteral("config"), QStringLiteral("check"), QStringLiteral("-")},
            R"({"version":1,"shortcuts":[]})");
    EXPECT_EQ(bad.status, 1);
    EXPECT_EQ(bad.out, "");
    EXPECT_THAT(bad.err, HasSubstr("launchAtLogin"));
    EXPECT_EQ(run({QStringLiteral("config"), QStringLiteral("check"), home.path()}).status, 1);
}

TEST_F(CommandLineTest, statisticsAreOfTheDayGiven) {
    const QStringList verb{QStringLiteral("stats"), QStringLiteral("--on"),
                           QStringLiteral("2026-07-24")};
    const QByteArray store = R"({"byDay":{"2026-07-23":14,"2026-07-24":2},"total":116,"voice":4,)"
                             R"("switcher":2,"celebrated":["j100"],"used":["voice","drop"]})";
    const auto at = [&](const QByteArray& content) {
        return verb + QStringList{QStringLiteral("--file"), file("stats.json", content)};
    };
    const std::string expected =
        R"({"keyboard":110,"nextMilestone":null,"nextTip":{"id":"tip.hide","text":"Add ⇧ to any )"
        R"(jump key and the window tucks away again. In, out, one hand."},"recap":{"id":)"
        R"("recap.2026-W30","sub":"1 min. Nice week. 2-day streak 🔥","title":"16 jumps this week )"
        R"(⚡"},"streakDays":2,"switcher":2,"timeSaved":"10 min","total":116,"voice":4,)"
        R"("weekJumps":16})"
        "\n";
    EXPECT_EQ(run(at(store)).out, expected);
    QStringList piped = verb;
    EXPECT_EQ(run(piped << QStringLiteral("--file") << QStringLiteral("-"), store).out, expected);
    QDir(home.path()).mkpath(QStringLiteral(".config/Skipnest"));
    file(".config/Skipnest/stats.json", store);
    EXPECT_EQ(run(verb).out, expected);

    const Finished parted = run(at(R"({"total":7,"voice":-1})"));
    EXPECT_EQ(parted.status, 0);
    EXPECT_THAT(parted.out, HasSubstr("\"total\":7"));
    EXPECT_THAT(parted.err, HasSubstr("left out voice: "));
    const Finished refused = run(at("[]"));
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.out, "");
    EXPECT_THAT(refused.err, HasSubstr("not a JSON object"));
    EXPECT_EQ(run({QStringLiteral("stats"), QStringLiteral("--file"), home.path()}).status, 1);
    const Finished missing = run(
        {QStringLiteral("stats"), QStringLiteral("--file"), home.filePath(QStringLiteral("x"))});
    EXPECT_EQ(missing.status, 0);
    EXPECT_THAT(missing.out, HasSubstr("\"timeSaved\":\"<1 min\""));
}

TEST_F(CommandLineTest, hotkeysAreListedInOrderWithoutSupersededOnes) {
    const QByteArray record =
        R"({"id":"00000000-0000-4000-8000-00000000000%1","name":"%2","targetPath":"/%2.app",)"
        R"("targetType":"application","sortOrder":%3,"createdAt":"2026-01-01T00:00:00Z",)"
        R"("keyCombo":{"keyCode":38,"modifiers":1}})";
    QByteArray document = emptyDocument;
    const auto item = [&record](const char* id, const char* name, const char* order) {
        return QByteArray(record).replace("%1", id).replace("%2", name).replace("%3", order);
    };
    document.replace("[]", "[" + item("1", "Late", "7") + "," + item("2", "Early", "3") + "]");
    const Finished finished =
        run({QStringLiteral("hotkeys"), QStringLiteral("--config"), file("config.json", document)});
    const QJsonArray listed =
        QJsonDocument::fromJson(QByteArray::fromStdString(finished.out)).array();
    std::vector<std::string> lines;
    for (const QJsonValue& entry : listed)
        lines.push_back(QStringLiteral("%1 %2 %3 %4")
                            .arg(entry[u"id"].toInt())
                            .arg(entry[u"words"].toString(), entry[u"action"].toString(),
                                 entry[u"item"].toString())
                            .toStdString());
    EXPECT_THAT(lines, testing::ElementsAre("3 Cmd + J jump Late", "4 Shift + Cmd + J hide Late",
                                            "5 Ctrl + Opt + V voice "));
}

TEST_F(CommandLineTest, scriptsArePrintedAsTheyAre) {
    const auto script = [this](const char* words) {
        return run(QString::fromUtf8("script " + QByteArray(words)).split(u' '));
    };
    EXPECT_EQ(script("activate --bundle com.google.Chrome --window 2 --tab 11").out,
              "tell application id \"com.google.Chrome\"\n"
              "    set active tab index of window 2 to 11\n"
              "    set index of window 2 to 1\n"
              "    activate\n"
              "end tell\n");
    struct Row {
        const char* words;
        int status;
        const char* said; // in the output, or among the errors
    };
    const Row rows[] = {
        {"enumerate --bundle com.apple.Safari", 0, "index of current tab of w\n"},
        {"enumerate --bundle com.apple.safari", 1, "\"com.apple.safari\" is no browser"},
        {"enumerate", 2, "--bundle"},
        {"activate --bundle com.example.notes --window 1 --tab 1", 1, "is no browser"},
        {"activate --bundle com.apple.Safari --window 1 --tab x", 2, "--tab"},
        {"relocate --bundle com.brave.Browser --window 1 --tab 2 --url u --title a\"b", 0,
         "set tTitle to \"a\\\"b\"\n"},
        {"relocate --bundle company.thebrowser.Browser --window 1 --tab 2 --url u --title t", 1,
         "not looked for again"},
        {"relocate --bundle com.brave.Browser --window 1 --tab 2 --url u", 2, "--title"},
        {"cycle --bundle com.example.notes --direction 1", 0, "minimized is true) to false"},
        {"cycle --bundle com.example.notes --direction 2", 2, "--direction"},
    };
    for (const Row& row : rows) {
        const Finished finished = script(row.words);
        EXPECT_EQ(finished.status, row.status) << row.words;
        EXPECT_THAT(row.status == 0 ? finished.out : finished.err, HasSubstr(row.said));
        EXPECT_EQ(finished.out.empty(), row.status != 0) << row.words;
    }
}

TEST_F(CommandLineTest, browserAnswersAndTitlesAreUnderstood) {
    const QStringList tabs{QStringLiteral("tabs-output"), QStringLiteral("--bundle"),
                           QStringLiteral("com.apple.Safari"), QStringLiteral("-")};
    EXPECT_EQ(run(tabs, "1\0012\001T\0011\001https://x/\nx\n").out,
              "[{\"active\":true,\"tabIndex\":2,\"title\":\"T\",\"url\":\"https://x/\","
              "\"windowIndex\":1}]\n");
    EXPECT_EQ(run(tabs).out, "[]\n");
    const auto match = [this](const QString& a, const QString& b) {
        return run({QStringLiteral("titles-match"), a, b}).out;
    };
    EXPECT_EQ(match(QStringLiteral("Report…"), QStringLiteral("Report 2024")), "true\n");
    EXPECT_EQ(match(QString(), QString()), "false\n");
}

TEST_F(CommandLineTest, withoutAnAgentTheListIsChangedInTheFile) {
    const QString target = file("Größe.txt", {});
    const Finished added =
        run({QStringLiteral("add"), target, QStringLiteral("--key"), QStringLiteral("ctrl+opt+g")});
    EXPECT_EQ(added.status, 0) << added.err;
    EXPECT_THAT(added.out, HasSubstr("\"name\":\"Größe\""));
    const auto refusedFor = [&](const QString& path, const char* key) {
        const Finished refused =
            run({QStringLiteral("add"), path, QStringLiteral("--key"), QString::fromUtf8(key)});
        EXPECT_EQ(refused.status, 1);
        return refused.err;
    };
    const QString other = file("other.txt", {});
    EXPECT_THAT(refusedFor(target, "f5"), HasSubstr("has a shortcut already"));
    EXPECT_THAT(refusedFor(other, "ctrl+opt+g"),
                HasSubstr("Ctrl + Opt + G is already assigned to \"Größe\""));
    EXPECT_THAT(refusedFor(other, "cmd+tab"), HasSubstr("is a system shortcut"));
    EXPECT_THAT(refusedFor(home.filePath(QStringLiteral("none")), "ctrl+f5"),
                HasSubstr("does not exist"));
    EXPECT_EQ(run({QStringLiteral("add"), other}).status, 0);

    EXPECT_EQ(run({QStringLiteral("remove"), QStringLiteral("grö")}).status, 0);
    const Finished listed = run({QStringLiteral("list")});
    const QJsonArray items = QJsonDocument::fromJson(QByteArray::fromStdString(listed.out)).array();
    ASSERT_EQ(items.size(), 1);
    EXPECT_EQ(items[0][u"name"].toString(), u"other");
}

TEST_F(CommandLineTest, withoutAnAgentExportsTravelByFileAndByPipe) {
    const QString target = file("Größe\n.txt", {});
    const QString url = QUrl::fromLocalFile(target).toString(QUrl::FullyEncoded);
    EXPECT_EQ(run({QStringLiteral("add"), url}).status, 0);
    EXPECT_THAT(run({QStringLiteral("add"), QStringLiteral("https://example.com/x")}).err,
                HasSubstr("is not a file or folder on this computer"));
    const Finished exported = run({QStringLiteral("export")});
    EXPECT_THAT(exported.out, StartsWith("{\n    \"launchAtLogin\": false,\n"));
    const QString path = home.filePath(QStringLiteral("Skipnest-Export.json"));
    EXPECT_THAT(run({QStringLiteral("export"), path}).out, HasSubstr("{\"path\":\"/"));
    QFile written(path);
    ASSERT_TRUE(written.open(QFile::ReadOnly));
    EXPECT_EQ(written.readAll().toStdString(), exported.out);

    EXPECT_THAT(run({QStringLiteral("import"), path}).out, HasSubstr("\"unchanged\":1"));
    const Finished piped =
        run({QStringLiteral("import"), QStringLiteral("-")},
            R"({"version":1,"launchAtLogin":true,"menuBarIconName":"x","shortcuts":[{"id":)"
            R"("00000000-0000-4000-8000-000000000001","name":"Evil","targetPath":)"
            R"("/tmp/Evil.desktop","targetType":"file","sortOrder":0,)"
            R"("createdAt":"2026-01-01T00:00:00Z"}]})");
    EXPECT_THAT(piped.out, testing::AllOf(HasSubstr("\"imported\":1"),
                                          HasSubstr("\"unconfirmed\":[\"Evil\"]")));
    EXPECT_EQ(run({QStringLiteral("confirm"), QStringLiteral("Evil")}).status, 0);
    EXPECT_THAT(run({QStringLiteral("import"), path}).out, HasSubstr("\"unconfirmed\":[]"));
    EXPECT_EQ(run({QStringLiteral("import"), home.path()}).status, 1);
    EXPECT_THAT(run({QStringLiteral("import"), target}).err, HasSubstr("couldn't be read"));
    EXPECT_EQ(run({QStringLiteral("export"), home.path()}).status, 1);
}

TEST_F(CommandLineTest, verbsOfTheAgentSayThatNoneRuns) {
    for (const char* verb : {"status", "quit", "next-window", "popover", "switcher"}) {
        const Finished finished = run({QString::fromLatin1(verb)});
        EXPECT_EQ(finished.status, 1);
        EXPECT_THAT(finished.err, HasSubstr("no agent runs"));
    }
    EXPECT_EQ(run({QStringLiteral("jump"), QStringLiteral("X")}).status, 1);
}

TEST_F(CommandLineTest, helpVersionAndDoctorNeedNoDisplay) {
    EXPECT_THAT(run({QStringLiteral("help")}).out, HasSubstr("replay FILE"));
    EXPECT_THAT(
        run({QStringLiteral("help"), QStringLiteral("config"), QStringLiteral("check")}).out,
        HasSubstr("usage: skipnest config check FILE"));
    EXPECT_THAT(run({QStringLiteral("--version")}).out, StartsWith("skipnest 0."));
    const Finished doctor = run({QStringLiteral("doctor"), QStringLiteral("--json")});
    EXPECT_EQ(doctor.status, 0);
    const QJsonArray rows = QJsonDocument::fromJson(QByteArray::fromStdString(doctor.out)).array();
    for (const QJsonValue& row : rows) {
        const bool works = row[u"state"].toString() == u"available";
        EXPECT_EQ(row[u"reason"].toString().isEmpty(), works)
            << row[u"name"].toString().toStdString();
        EXPECT_EQ(row[u"remedy"].toString().isEmpty(), works);
    }
    EXPECT_GE(rows.size(), 15);
}

TEST_F(CommandLineTest, replayRunsTheWholeAgentAndNamesABadLine) {
    const Finished finished =
        run({QStringLiteral("replay"), QStringLiteral("-")},
            R"({"do":"app","name":"Notes","bundle":"com.example.notes","path":"/N.app","pid":7}
{"do":"shortcut","name":"Notes","path":"/N.app","type":"application","key":"ctrl+opt+j"}
{"do":"refuse","key":"ctrl+opt+v","status":-9878}
{"do":"start"}
{"at":1,"do":"config","set":{"shiftToHide":false}}
{"at":1.5,"do":"hotkey","key":"ctrl+opt+j"}
)");
    EXPECT_EQ(finished.status, 0) << finished.err;
    EXPECT_THAT(
        finished.out,
        testing::AllOf(
            HasSubstr(R"({"t":0,"print":"[Skipnest] Failed to register hotkey Ctrl + Opt + V)"),
            HasSubstr(R"({"t":1.5,"call":"openApplication","path":"/N.app"})"),
            HasSubstr(R"("hotkeys":[{"action":"jump","id":4,"item":"Notes")")));
    const Finished left = run({QStringLiteral("replay"), QStringLiteral("-")},
                              "{\"do\":\"start\"}\n{\"do\":\"panelKeyLost\"}\n");
    EXPECT_THAT(left.out,
                testing::AllOf(HasSubstr("\"panel\":null"), testing::Not(HasSubstr("didOnboard"))));
    const Finished bad = run({QStringLiteral("replay"), QStringLiteral("-")},
                             "{\"at\":2,\"do\":\"start\"}\n{\"at\":1,\"do\":\"start\"}\n");
    EXPECT_EQ(bad.status, 1);
    EXPECT_THAT(bad.err, HasSubstr("line 2"));
}

} // namespace
} // namespace skipnest::cli
