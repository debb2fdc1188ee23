// SPDX-License-Identifier: Apache-2.0
#include "cli/TraceReader.h"
#include "cli/TraceWriter.h"

#include <QBuffer>
#include <QJsonDocument>

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace skipnest::cli::trace {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using platform::Instant;
using testing::HasSubstr;

struct Reading {
    std::vector<Event> events;
    std::string failure;
};

Reading readAll(QByteArray bytes) {
    QBuffer input(&bytes);
    EXPECT_TRUE(input.open(QIODevice::ReadOnly));
    TraceReader reader(input);
    Reading reading;
    while (true) {
        auto event = reader.next();
        if (!event) {
            reading.failure = event.failure().detail.toStdString();
            EXPECT_TRUE(reader.next().ok()) << "after a failure comes the end";
            return reading;
        }
        if (!*event)
            return reading;
        reading.events.push_back(**event);
    }
}

struct BadRow {
    const char* trace;
    const char* failure;
};

class BadTrace : public testing::TestWithParam<BadRow> {};

TEST_P(BadTrace, isRefusedWithItsLine) {
    EXPECT_THAT(readAll(GetParam().trace).failure, HasSubstr(GetParam().failure));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, BadTrace,
    testing::Values(
        BadRow{"\n\n{\"do\":\"fly\"}", "line 3: unknown event \"fly\""},
        BadRow{"{\"do\":1}", "line 1: \"do\" must be"}, BadRow{"{}", "line 1: \"do\" must be"},
        BadRow{"[]", "line 1: an event is a JSON object"},
        BadRow{"{\"do\":\"start\"", "line 1: no JSON"},
        BadRow{"{\"do\":\"start\"}{\"do\":\"start\"}", "line 1: no JSON"},
        BadRow{"{\"do\":\"start\"}\n\xff\xfe", "line 2: no JSON"},
        BadRow{"{\"do\":\"start\",\"now\":1}", "line 1: unknown field \"now\" of \"start\""},
        BadRow{"{\"do\":\"start\",\"at\":\"0\"}", "\"at\" of \"start\" must be a number"},
        BadRow{"{\"do\":\"start\",\"at\":-0.1}", "\"at\" of \"start\" must be a number"},
        BadRow{"{\"do\":\"start\",\"at\":1e300}", "\"at\" of \"start\" must be a number"},
        BadRow{"{\"do\":\"start\",\"at\":2}\n{\"do\":\"start\",\"at\":1.9}",
               "line 2: time runs backwards"},
        BadRow{"{\"do\":\"wait\",\"until\":2}\n{\"do\":\"start\",\"at\":1.9}",
               "line 2: time runs backwards"},
        BadRow{"{\"at\":2,\"do\":\"wait\",\"until\":1}", "line 1: time runs backwards"},
        BadRow{"{\"do\":\"front\"}", "\"front\" needs a field \"app\""},
        BadRow{"{\"do\":\"app\",\"name\":\"\"}", "must not be empty"},
        BadRow{"{\"do\":\"app\",\"name\":\"A\",\"pid\":1.5}", "\"pid\" of \"app\""},
        BadRow{"{\"do\":\"app\",\"name\":\"A\",\"windows\":[{\"title\":\"x\",\"frame\":[0,0,1]}]}",
               "\"windows\" of \"app\""},
        BadRow{"{\"do\":\"app\",\"name\":\"A\",\"windowMenu\":[{\"mark\":\"x\"}]}",
               "\"windowMenu\" of \"app\""},
        BadRow{"{\"do\":\"app\",\"name\":\"A\",\"axError\":{\"AXRaise\":\"x\"}}",
               "\"axError\" of \"app\""},
        BadRow{"{\"do\":\"file\",\"path\":\"a.txt\"}", "must be an absolute path"},
        BadRow{"{\"do\":\"remove\",\"path\":\"/\"}", "must be an absolute path"},
        BadRow{"{\"do\":\"file\",\"path\":\"/a/../b\"}", "must be an absolute path"},
        BadRow{"{\"do\":\"file\",\"path\":\"/a\\u0000\"}", "must be an absolute path"},
        BadRow{"{\"do\":\"hotkey\",\"key\":\"ctrl+ctrl+j\"}", "must be a key combination"},
        BadRow{"{\"do\":\"hotkey\",\"key\":null}", "must be a key combination"},
        BadRow{"{\"do\":\"key\",\"code\":65536}", "\"code\" of \"key\""},
        BadRow{"{\"do\":\"flags\",\"code\":59,\"flags\":[\"ctl\"]}", "\"flags\" of \"flags\""},
        BadRow{"{\"do\":\"refuse\",\"key\":\"f5\"}", "\"refuse\" needs"},
        BadRow{"{\"do\":\"refuse\",\"handler\":-1,\"status\":-1}", "\"refuse\" needs"},
        BadRow{"{\"do\":\"script\",\"to\":\"a\"}", "\"script\" needs either"},
        BadRow{"{\"do\":\"shortcut\",\"name\":\"A\",\"path\":\"/A\",\"type\":\"app\"}",
               "must be one of application, file, folder"},
        BadRow{"{\"do\":\"clock\",\"utc\":\"yesterday\"}", "\"utc\" of \"clock\""},
        BadRow{"{\"do\":\"clock\",\"zone\":\"Mars/North\"}", "is no time zone"},
        BadRow{"{\"do\":\"heard\",\"locale\":\"en-US\",\"text\":1}", "\"text\" of \"heard\""},
        BadRow{"{\"do\":\"tap\",\"which\":\"mouse\",\"event\":\"timeout\"}",
               "\"which\" of \"tap\""},
        BadRow{"{\"do\":\"click\"}", "\"click\" needs \"outside\""},
        BadRow{"{\"do\":\"hover\",\"index\":1}", "line 1: \"hover\" is not simulated yet"},
        BadRow{"{\"do\":\"press\",\"button\":\"fix\"}", "not simulated yet"}));

TEST(TraceReader, everyEventOfTheFormatIsKnown) {
    const std::vector<const char*> later = {
        R"({"do":"tap","which":"voice","event":"timeout"})",
        R"({"do":"hover","index":1})",
        R"({"do":"pick","index":1})",
        R"({"do":"tabs","bundle":"b","output":"1\u00011\u0001T\u00011\u0001https://x/\n","relocate":"1","activate":"ok","after":0.0})",
        R"({"do":"heard","locale":"en-US","text":"open","final":true,"segments":[0.9,0.5]})",
        R"({"do":"heardError","locale":"de-DE","error":"No speech detected"})",
        R"({"do":"microphone","level":0.2,"format":"ok","startError":null})",
        R"({"do":"index","after":2.0})",
        R"({"do":"model","available":true,"intent":{},"cleanup":"Hey Paul.","after":0.3})",
        R"({"do":"contact","name":"Paul Klein","phone":"+49 170 1","email":null})",
        R"({"do":"moveError","error":"x"})",
    };
    for (const char* line : later)
        EXPECT_THAT(readAll(line).failure, HasSubstr("is not simulated yet")) << line;

    const Reading app = readAll(
        R"({"do":"app","name":"Notes","bundle":"com.example.notes","path":"/Applications/Notes.app","pid":101,"running":true,"windows":[{"title":"A"},{"title":"B","minimized":true,"subrole":"AXDialog","frame":[0,0,800,600]},{"subrole":null}],"focused":0,"menuBar":7,"windowMenu":[{"title":"Minimize"},{"title":"A","mark":"✓"}],"axError":{"AXRaise":-25205},"document":"/tmp/x.txt","selection":["/tmp/y.txt"]})");
    ASSERT_EQ(app.failure, "");
    const auto& declared = std::get<DeclareApp>(app.events.at(0).what).app;
    EXPECT_EQ(declared.pid.value, 101);
    EXPECT_EQ(declared.windows.at(1), (sim::SimWindow{u"B"_s, true}));
}

TEST(TraceReader, takesByteOrderMarkCarriageReturnsBlankLinesAndNoLastBreak) {
    const Reading reading =
        readAll("\xEF\xBB\xBF{\"do\":\"start\"}\r\n\r\n  \n{\"at\":0.72,\"do\":\"start\"}");
    EXPECT_EQ(reading.failure, "");
    ASSERT_EQ(reading.events.size(), 2U);
    EXPECT_FALSE(reading.events[0].at.has_value());
    EXPECT_EQ(reading.events[1].at, Instant(720ms));
}

TEST(TraceReader, aLineMayBeAMegabyteLongAndNoLonger) {
    const QByteArray start = "{\"do\":\"start\"}";
    const auto padded = [&start](qsizetype size) {
        return start + QByteArray(size - start.size(), ' ') + '\n' + start;
    };
    EXPECT_EQ(readAll(padded(TraceReader::longestLine)).events.size(), 2U);
    EXPECT_THAT(readAll(padded(TraceReader::longestLine + 1)).failure,
                HasSubstr("line 1: the line is longer than 1 MB"));
}

TEST(TraceReader, aTraceMayBe64MegabytesLargeAndNoLarger) {
    const QByteArray megabyte = QByteArray(TraceReader::longestLine - 1, ' ') + '\n';
    EXPECT_EQ(readAll(megabyte.repeated(64)).failure, "");
    EXPECT_THAT(readAll(megabyte.repeated(64) + ' ').failure,
                HasSubstr("line 65: the trace is larger than 64 MB"));
}

TEST(TraceWriter, whatItWritesReadsBackTheSameButForKeys) {
    const QByteArray trace = R"({"do":"config","set":{"windowCycling":true}}
{"do":"defaults","set":{"a":{"b":0}}}
{"do":"clock","utc":"2026-07-24T21:59:50.500Z","zone":"Europe/Berlin"}
{"do":"locale","current":"de_DE","preferred":["de-DE","en-US"],"unavailable":[]}
{"do":"trust","accessibility":false,"microphone":"denied","speech":"granted"}
{"do":"app","name":"Notes","bundle":"com.example.notes","path":"/Applications/Notes.app","pid":101,"running":false,"windows":[{"title":"A","minimized":true}]}
{"do":"quit","app":"Notes"}
{"do":"front","app":"Notes"}
{"do":"shortcut","name":"N","path":"/N","type":"folder","key":"cmd+key81","hideKey":null}
{"do":"shortcut","name":"N","path":"/N","type":"file","key":"shift+=","hideKey":"f5"}
{"do":"file","path":"/tmp/x"}
{"do":"folder","path":"/tmp/x"}
{"do":"remove","path":"/tmp/x"}
{"do":"bookmark","path":"/tmp/x","resolves":null}
{"do":"bookmark","path":"/tmp/x","resolves":"/tmp/y"}
{"do":"opens","path":"/tmp/x","with":"TextEdit"}
{"do":"refuse","key":"ctrl+opt+j","status":-9878}
{"do":"refuse","handler":-1}
{"do":"hideFails","app":"Notes"}
{"do":"start"}
{"at":0.1,"do":"flags","code":59,"flags":["control","capsLock"]}
{"at":0.25,"do":"hotkey","key":"ctrl+opt+cmd+shift+key10"}
{"at":0.25,"do":"press","button":"OK"}
{"at":0.25,"do":"script","to":"b","output":"1\u00011\n"}
{"at":0.25,"do":"script","to":"b","error":-1743}
{"at":0.3,"do":"wait","until":3.000000001})";
    const Reading first = readAll(trace);
    ASSERT_EQ(first.failure, "");
    ASSERT_EQ(first.events.size(), 26U);

    QByteArray written;
    TraceWriter writer(Instant{}, [&written](const QByteArray& line) { written += line + '\n'; });
    Instant at{};
    for (const Event& event : first.events) {
        at = event.at.value_or(at);
        writer.write(at, event.what);
    }
    const Reading second = readAll(written);
    ASSERT_EQ(second.failure, "") << written.toStdString();
    ASSERT_EQ(second.events.size(), first.events.size());
    for (std::size_t i = 0; i < first.events.size(); ++i) {
        EXPECT_EQ(toJson(second.events[i].what), toJson(first.events[i].what)) << "event " << i;
        EXPECT_EQ(second.events[i].at, first.events[i].at.value_or(Instant{})) << "event " << i;
    }
    // The pairs above compare what the writer makes of both; these are read against the trace.
    EXPECT_EQ(std::get<AddShortcut>(second.events[8].what).key->keyCode, 81);
    EXPECT_EQ(std::get<Wait>(second.events.back().what).until, Instant(3s + 1ns));
    EXPECT_EQ(std::get<PressHotkey>(second.events[21].what).key,
              std::get<PressHotkey>(first.events[21].what).key);
}

TEST(TraceWriter, keepsNoKeyThatWasTypedAndNeverGoesBackInTime) {
    std::vector<std::string> lines;
    TraceWriter writer(Instant(10s),
                       [&lines](const QByteArray& line) { lines.push_back(line.toStdString()); });
    writer.write(Instant(11500ms), PressKey{1, u"s"_s, {}, false});
    writer.write(Instant(11s), Start{});
    EXPECT_THAT(lines,
                testing::ElementsAre(
                    R"({"at":1.5,"code":65535,"do":"key","flags":[],"repeat":false,"text":""})",
                    R"({"at":1.5,"do":"start"})"));
}

} // namespace
} // namespace skipnest::cli::trace
