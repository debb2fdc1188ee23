// SPDX-License-Identifier: Apache-2.0
#include "services/FeedbackService.h"

#include <utility>

namespace skipnest::services {
namespace {

using namespace Qt::StringLiterals;

QString word(FeedbackService::Category category) {
    switch (category) {
    case FeedbackService::Category::bug:
        return u"bug"_s;
    case FeedbackService::Category::feature:
        return u"feature"_s;
    case FeedbackService::Category::marketing:
        return u"marketing"_s;
    case FeedbackService::Category::other:
        break;
    }
    return u"other"_s;
}

} // namespace

void FeedbackService::send(Category category, const QString& message, const QString& email,
                           std::function<void(bool sent)> done) {
    platform::FormFields form{{u"category"_s, word(category)}, {u"message"_s, message}};
    if (!email.isEmpty())
        form.emplace_back(u"email"_s, email);
    diagnostics_.log(u"feedback: sending (%1 chars)"_s.arg(message.size()));
    web_.post(u"/feedback.php"_s, form,
              [&diagnostics = diagnostics_,
               done = std::move(done)](const platform::Result<platform::HttpReply>& reply) {
                  diagnostics.log(
                      u"feedback: reply status=%1 err=%2"_s.arg(reply ? reply->status : 0)
                          .arg(reply ? u"none"_s : reply.failure().detail));
                  if (done)
                      done(reply && reply->isSuccess());
              });
}

} // namespace skipnest::services
