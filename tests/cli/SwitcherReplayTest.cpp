// SPDX-License-Identifier: Apache-2.0
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <gmock/gmock.h>

namespace skipnest::cli {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

struct Replayed {
    std::vector<std::string> lines; // panel lines, and those of the log that are the switcher's
    QJsonObject end;
};

// "switcher: search 0 A,B 'a' A pinned": level, selected, titles, and the query with its hits.
QString panelLine(const QJsonObject& line) {
    const auto joined = [](const QJsonValue& texts) {
        return texts.toVariant().toStringList().join(u',');
    };
    QString text = line[u"panel"_s].toString() + u": "_s + line[u"state"_s].toString();
    if (line.contains(u"selected"_s))
        text += u" %1 %2"_s.arg(line[u"selected"_s].toInt()).arg(joined(line[u"titles"_s]));
    if (const QString query = line[u"query"_s].toString(); !query.isEmpty())
        text += u" '%1' %2"_s.arg(query, joined(line[u"results"_s]));
    return text + (line[u"pinned"_s].toBool() ? u" pinned"_s : QString());
}

constexpr const char* stage =
    R"({"do":"app","name":"Notes","bundle":"com.example.notes","path":"/Notes.app","windows":[{"title":"A"},{"title":"B"}]}
{"do":"app","name":"Chrome","bundle":"com.google.Chrome","path":"/Chrome.app","windows":[{"title":"Git"}]}
{"do":"tabs","bundle":"com.google.Chrome","output":"1\u00011\u0001Git\u00011\u0001https://git.example/\n1\u00012\u0001Mail\u00010\u0001https://mail.example/\n2\u00011\u0001Legit\u00011\u0001https://x.example/\n"}
{"do":"shortcut","name":"Notes","path":"/Notes.app","type":"application","key":"ctrl+opt+n"}
{"do":"shortcut","name":"Chrome","path":"/Chrome.app","type":"application","key":"ctrl+opt+c"}
{"do":"start"}
)";

Replayed replay(const QByteArray& trace) {
    QProcess process;
    process.start(QStringLiteral(SKIPNEST_BINARY), {u"replay"_s, u"-"_s});
    process.write(stage + trace);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    Replayed replayed;
    for (const QByteArray& line : process.readAllStandardOutput().split('\n')) {
        const QJsonObject object = QJsonDocument::fromJson(line).object();
        const QString log = object[u"log"_s].toString();
        const QString time = QString::number(object[u"t"_s].toDouble()) + u' ';
        if (object.contains(u"end"_s))
            replayed.end = object[u"end"_s].toObject();
        else if (object.contains(u"panel"_s))
            replayed.lines.push_back((time + panelLine(object)).toStdString());
        else if (log.startsWith(u"switcher: "))
            replayed.lines.push_back((time + log.mid(10)).toStdString());
    }
    return replayed;
}

TEST(SwitcherReplay, showsTheBarFromOpenToPick) {
    const Replayed replayed = replay(R"({"do":"front","app":"Notes"}
{"at":1,"do":"hotkey","key":"ctrl+opt+n"}
{"at":1.1,"do":"flags","code":59,"flags":[]}
{"at":2,"do":"hover","index":1}
{"at":3,"do":"pick","index":1}
{"do":"wait","until":4}
)");
    EXPECT_THAT(replayed.lines,
                ElementsAre("1 Notes: AX=2 menu=0",
                            "1 begin hold=786432 down=true browser=false windows=2",
                            "1 switcher: windows 0 A,B", "1 CGEventTap installed",
                            "1.12 tap-open → interactive", "1.12 switcher: windows 0 A,B pinned",
                            "2 switcher: windows 1 A,B pinned", "3 switcher: closed",
                            "3 commit(click window)"));
    EXPECT_EQ(replayed.end[u"stats"_s][u"switcher"_s], 1);
    EXPECT_TRUE(replayed.end[u"panel"_s].isNull());
}

TEST(SwitcherReplay, keysReachTheBarUntilItsTapIsLost) {
    const Replayed replayed = replay(R"({"do":"front","app":"Chrome"}
{"at":1,"do":"hotkey","key":"ctrl+opt+c"}
{"do":"tap","which":"switcher","event":"timeout"}
{"at":1.1,"do":"key","code":125,"flags":["control","option"]}
{"at":1.2,"do":"key","code":5,"text":"g"}
{"do":"tap","which":"switcher","event":"invalid"}
{"at":1.3,"do":"key","code":53}
)");
    EXPECT_THAT(replayed.lines,
                ElementsAre("1 browser windows=2 tabs=3",
                            "1 begin hold=786432 down=true browser=true windows=2",
                            "1 switcher: windows 0 Git,Legit", "1 CGEventTap installed",
                            "1.1 pinned (interactive)", "1.1 switcher: tabs 0 Git,Mail pinned",
                            "1.2 query='g' matches=2",
                            "1.2 switcher: search 0 Git,Legit 'g' Git,Legit pinned"));
    EXPECT_EQ(replayed.end[u"panel"_s], u"switcher"_s);
}

TEST(SwitcherReplay, aRefusedTapAndAClickOutside) {
    const Replayed replayed = replay(R"({"do":"front","app":"Notes"}
{"do":"tap","which":"switcher","event":"unavailable"}
{"at":1,"do":"hotkey","key":"ctrl+opt+n"}
{"at":1.1,"do":"click","outside":true}
)");
    EXPECT_THAT(replayed.lines,
                ElementsAre("1 Notes: AX=2 menu=0",
                            "1 begin hold=786432 down=true browser=false windows=2",
                            "1 switcher: windows 0 A,B",
                            "1 CGEventTap create failed — arrows/search off (hold-cycle only)",
                            "1.1 click outside — dismissing", "1.1 switcher: closed"));
    EXPECT_EQ(replayed.end[u"stats"_s][u"switcher"_s].toInt(), 0);
}

} // namespace
} // namespace skipnest::cli
