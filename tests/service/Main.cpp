// SPDX-License-Identifier: Apache-2.0
#include "platform/QtScheduler.h"
#include "tests/service/StandInService.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>
#include <map>

namespace {

using namespace Qt::StringLiterals;
using skipnest::tests::ScriptedAnswer;
using skipnest::tests::StandInService;

const std::map<QString, ScriptedAnswer>& manners() {
    static const std::map<QString, ScriptedAnswer> table{
        {u"500"_s, ScriptedAnswer::reply(500, "{}")},
        {u"closed"_s, ScriptedAnswer::closedAtOnce()},
        {u"cut"_s, ScriptedAnswer::cut()},
        {u"huge"_s, ScriptedAnswer::huge()},
        {u"redirect"_s, ScriptedAnswer::redirect("/version.json")},
        {u"silent"_s, ScriptedAnswer::silent()},
        {u"slow"_s, ScriptedAnswer::trickling()},
        {u"wrong"_s, ScriptedAnswer::reply(200, "[\"what\"]")},
    };
    return table;
}

void say(const QString& line) {
    std::puts(qUtf8Printable(line));
    std::fflush(stdout);
}

void report(const StandInService::Received& received) {
    const auto& request = received.request;
    say(u"%1 %2%3"_s.arg(QString::fromLatin1(request.method), QString::fromLatin1(request.path),
                         received.judged ? QString()
                                         : u"  WRONG: "_s + received.judged.failure().detail));
    if (received.judged) {
        for (const auto& [name, value] : received.judged->fields)
            say(u"    %1 = %2"_s.arg(name, value));
    }
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"A web service on this machine for trying out the program. It prints its address, then\n"
        "every request with its fields, and says what is wrong with one. Build with\n"
        "SKIPNEST_SERVICE_URL set to the address. Ends with Ctrl-C."_s);
    parser.addHelpOption();
    const QCommandLineOption port(u"port"_s, u"The port to listen on, on 127.0.0.1."_s, u"PORT"_s,
                                  u"8480"_s);
    const QCommandLineOption release(u"release"_s, u"The newest release that it tells of."_s,
                                     u"VERSION"_s, u"0.0.1"_s);
    const QCommandLineOption answer(u"answer"_s,
                                    u"Answers PATH in one of these ways: %1."_s.arg([] {
                                        QStringList names;
                                        for (const auto& [name, scripted] : manners())
                                            names.append(name);
                                        return names.join(u", "_s);
                                    }()),
                                    u"PATH=WAY"_s);
    parser.addOptions({port, release, answer});
    parser.process(application);

    skipnest::platform::QtScheduler scheduler;
    StandInService service(scheduler);
    service.setObserver(report);
    service.setRelease(parser.value(release), u"1"_s, u"https://skipnest.example/release"_s);
    for (const QString& told : parser.values(answer)) {
        const auto way = manners().find(told.section(u'=', 1));
        if (way == manners().end()) {
            std::fputs(qPrintable(u"no such way to answer: %1\n"_s.arg(told)), stderr);
            return 2;
        }
        service.setAnswer(told.section(u'=', 0, 0), way->second);
    }
    bool isNumber = false;
    const quint16 number = parser.value(port).toUShort(&isNumber);
    if (!isNumber || !service.listenHere(number)) {
        std::fputs(qPrintable(u"cannot listen on port %1\n"_s.arg(parser.value(port))), stderr);
        return 1;
    }
    say(service.address());
    return QCoreApplication::exec();
}
