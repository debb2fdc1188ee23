// SPDX-License-Identifier: Apache-2.0
#include "services/FeedbackService.h"

#include "tests/services/ServicesDesk.h"

#include <gmock/gmock.h>

#include <optional>

namespace skipnest::services {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

class FeedbackServiceTest : public testing::Test {
protected:
    std::optional<bool> send(const QString& message, const QString& email) {
        std::optional<bool> sent;
        service.send(FeedbackService::Category::feature, message, email,
                     [&](bool ok) { sent = ok; });
        EXPECT_FALSE(sent) << "told from inside the call";
        stage.desk.advance({});
        return sent;
    }
    std::string form() const { return stage.desk.http().lastRequest().body.toStdString(); }

    mutable tests::ServicesDesk stage;
    FeedbackService service{*stage.web, stage.desk.journal()};
};

TEST_F(FeedbackServiceTest, sendsWhatWasTypedAndTheAddressOnlyWhereThereIsOne) {
    stage.answer("/feedback.php", 200);
    EXPECT_EQ(send(u"Größer & besser"_s, u"ada@example.org"_s), true);
    EXPECT_EQ(form(),
              "category=feature&message=Gr%C3%B6%C3%9Fer%20%26%20besser&email=ada%40example.org");
    EXPECT_EQ(send(u"a"_s, {}), true);
    EXPECT_EQ(form(), "category=feature&message=a");
    EXPECT_THAT(stage.desk.journal().logLines(),
                ElementsAre("feedback: sending (15 chars)", "feedback: reply status=200 err=none",
                            "feedback: sending (1 chars)", "feedback: reply status=200 err=none"));
}

TEST_F(FeedbackServiceTest, saysWhenItDidNotArrive) {
    stage.answer("/feedback.php", 500);
    EXPECT_EQ(send(u"a"_s, {}), false);
    stage.answer("/feedback.php", 302);
    EXPECT_EQ(send(u"a"_s, {}), false);
    stage.fail("/feedback.php");
    EXPECT_EQ(send(u"a"_s, {}), false);
    EXPECT_EQ(stage.desk.journal().logLines().back(), "feedback: reply status=0 err=nobody there");
}

TEST(FeedbackWithoutServiceTest, saysThatNothingWasSent) {
    tests::ServicesDesk stage("");
    FeedbackService service(*stage.web, stage.desk.journal());
    std::optional<bool> sent;
    service.send(FeedbackService::Category::bug, u"a"_s, {}, [&](bool ok) { sent = ok; });
    EXPECT_FALSE(sent);
    stage.desk.advance({});
    EXPECT_EQ(sent, false);
    EXPECT_THAT(stage.requests(), testing::IsEmpty());
}

} // namespace
} // namespace skipnest::services
