// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/WebService.h"
#include "platform/sim/SimDesktop.h"

#include <QUrlQuery>

#include <memory>
#include <string>
#include <vector>

namespace skipnest::tests {

// The simulated desktop of a build that talks to a web service.
class ServicesDesk {
public:
    explicit ServicesDesk(const char* address = "https://service.example") {
        desk.setServiceAddress(QString::fromLatin1(address));
        restart();
    }

    // As after a new start: requests on their way are gone.
    void restart() {
        web = std::make_unique<platform::WebService>(desk.http(), desk.scheduler(),
                                                     desk.appInfo().serviceAddress);
    }
    void answer(const char* path, int status, const QByteArray& body = "{}",
                platform::Duration after = {}) {
        desk.http().setAnswer(QString::fromLatin1(path), platform::HttpReply{status, body}, after);
    }
    void fail(const char* path) {
        desk.http().setAnswer(
            QString::fromLatin1(path),
            platform::Failure{platform::Failure::Kind::refused, QStringLiteral("nobody there")});
    }
    // The requests so far, "GET /voice.php?o=hit", without the identifier; they are forgotten.
    std::vector<std::string> requests() {
        desk.advance({});
        std::vector<std::string> found;
        for (const sim::JournalEntry& entry : desk.journal().entries()) {
            if (entry.text != u"http")
                continue;
            QString path = entry.fields[u"path"].toString();
            const qsizetype mark = path.indexOf(u'?');
            if (mark >= 0) {
                QUrlQuery query(path.mid(mark + 1));
                query.removeQueryItem(QStringLiteral("id"));
                path = path.left(mark + 1) + query.toString();
            }
            found.push_back((entry.fields[u"method"].toString() + u' ' + path).toStdString());
        }
        desk.journal().clear();
        return found;
    }

    sim::SimDesktop desk;
    std::unique_ptr<platform::WebService> web;
};

} // namespace skipnest::tests
