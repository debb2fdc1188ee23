// SPDX-License-Identifier: Apache-2.0
#include "tests/ui/ChallengeScene.h"

#include "platform/sim/SimDesktop.h"
#include "stats/ChallengeService.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace skipnest::test {

void removeWebService(sim::SimDesktop& desk) {
    desk.setServiceAddress({});
}

void takePartInChallenge(sim::SimDesktop& desk) {
    QByteArray board = R"({"available":true,"ok":true,"rank":7,"of":1204,"board":[
        {"rank":1,"n":"Élodie","c":"fr","j":12345,"m":1029,"s":365},
        {"rank":2,"n":"דנה כהן","c":"il","j":1204,"m":100,"s":41},
        {"rank":3,"n":"Wolfeschlegelsteinhausen","c":"de","j":990,"m":83,"s":7},
        {"rank":4,"n":"🎉 party","c":"","j":988,"m":82,"s":0},
        {"rank":5,"n":"太郎","c":"jp","j":700,"m":58,"s":12},
        {"rank":6,"n":"Ng","c":"sg","j":512,"m":43,"s":2},
        {"rank":7,"n":"Ada","c":"gb","j":240,"m":20,"s":5,"me":true})";
    for (int rank = 8; rank < 60; ++rank) {
        const QByteArray number = QByteArray::number(rank);
        board += R"(,{"rank":)" + number + R"(,"n":"Jumper )" + number +
                 R"(","c":"us","j":9,"m":1,"s":1})";
    }
    desk.http().setAnswer(challengePage, platform::HttpReply{200, board + "]}"});
    const QByteArray state = R"({"joined":true,"name":"Ada","country":"gb",
        "id":"5A3B7C1E-0000-4000-8000-000000000001","lastRank":7,"lastOf":1204,
        "lastSubmit":"2025-12-31T23:00:00Z","awarded":[],"weekAnchorRank":10,
        "weekAnchorDate":"2025-12-29T08:00:00Z"})";
    (void)desk.defaults().setValue(QLatin1String(stats::ChallengeService::key),
                                   QJsonDocument::fromJson(state).object());
}

} // namespace skipnest::test
