// SPDX-License-Identifier: Apache-2.0
#include "tests/ui/UiStage.h"

#include "ui/PopoverModel.h"
#include "ui/feedback/FeedbackForm.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QQuickItem>

#include <gmock/gmock.h>

namespace skipnest::ui {
namespace {

using namespace Qt::StringLiterals;
using platform::PopoverScreen;

class FeedbackTest : public testing::Test {
protected:
    void SetUp() override {
        stage_.desk().setServiceAddress({});
        stage_.launch();
        stage_.show({PopoverScreen::feedback, {}});
    }
    FeedbackForm& form() { return *stage_.panels().popoverModel().feedback(); }
    void pressButton(const QString& objectName) {
        stage_.item(objectName).forceActiveFocus(Qt::TabFocusReason);
        stage_.press(Qt::Key_Space);
    }
    QString shownText(const QString& objectName) {
        return stage_.hasItem(objectName) ? stage_.item(objectName).property("text").toString()
                                          : QString();
    }

    test::UiStage stage_;
};

TEST_F(FeedbackTest, withoutASenderTheTextCanBeCopied) {
    EXPECT_TRUE(stage_.hasItem(u"feedbackCannotSend"_s));
    EXPECT_FALSE(stage_.hasItem(u"feedbackSend"_s));
    stage_.type(u"Too slow"_s);
    form().setCategory(1);
    form().setEmail(u"a@b.example"_s);
    pressButton(u"feedbackCopy"_s);
    const QString copied = QGuiApplication::clipboard()->text();
    EXPECT_TRUE(copied.startsWith(u"Feature"_s) && copied.contains(u"Too slow"_s) &&
                copied.contains(u"a@b.example"_s))
        << qPrintable(copied);
    form().send();
    EXPECT_EQ(form().message(), u"Too slow");
}

TEST_F(FeedbackTest, typedTextIsThereAgainAfterAnotherScreen) {
    stage_.type(u"half a thou"_s);
    stage_.press(Qt::Key_Escape);
    EXPECT_EQ(stage_.panels().popoverModel().screen(), u"list");
    stage_.show({PopoverScreen::feedback, {}});
    EXPECT_EQ(shownText(u"feedbackMessage"_s), u"half a thou");
    stage_.press(Qt::Key_Tab); // leaves the pad instead of indenting
    stage_.type(u"x"_s);
    EXPECT_EQ(form().message(), u"half a thou");
}

TEST_F(FeedbackTest, isSentOnceAndKeptUntilItArrived) {
    std::vector<FeedbackForm::Feedback> sent;
    std::function<void(bool)> answer;
    form().setSender([&](const FeedbackForm::Feedback& feedback, std::function<void(bool)> done) {
        sent.push_back(feedback);
        answer = std::move(done);
    });
    stage_.settle();
    EXPECT_FALSE(stage_.hasItem(u"feedbackCannotSend"_s));
    EXPECT_FALSE(stage_.item(u"feedbackSend"_s).isEnabled());
    form().send();
    EXPECT_TRUE(sent.empty()); // nothing to say

    stage_.type(u" It broke "_s);
    stage_.press(Qt::Key_Return, Qt::ControlModifier);
    stage_.press(Qt::Key_Return, Qt::ControlModifier);
    stage_.type(u"more"_s);
    ASSERT_EQ(sent.size(), 1U);
    EXPECT_EQ(sent.front().category, u"bug");
    EXPECT_EQ(sent.front().message, u"It broke");

    answer(false);
    stage_.settle();
    EXPECT_EQ(shownText(u"feedbackResult"_s),
              u"Couldn't send just now - check your connection and try again.");
    EXPECT_EQ(shownText(u"feedbackMessage"_s), u" It broke ");

    pressButton(u"feedbackSend"_s);
    answer(true);
    stage_.settle();
    EXPECT_EQ(sent.size(), 2U);
    EXPECT_EQ(shownText(u"feedbackResult"_s), u"Your feedback is on its way.");
    EXPECT_EQ(shownText(u"feedbackMessage"_s), u"");
    // An answer that comes twice, or after the text was written anew, changes nothing.
    form().setMessage(u"next"_s);
    answer(true);
    EXPECT_EQ(form().message(), u"next");
}

TEST(FeedbackService, getsWhatWasTypedWhereThereIsOne) {
    test::UiStage stage;
    stage.desk().http().setAnswer(u"/feedback.php"_s, platform::HttpReply{200, {}});
    stage.launch();
    stage.show({PopoverScreen::feedback, {}});
    EXPECT_FALSE(stage.hasItem(u"feedbackCannotSend"_s));
    FeedbackForm& form = *stage.panels().popoverModel().feedback();
    form.setCategory(2);
    stage.type(u"More, please"_s);
    stage.press(Qt::Key_Return, Qt::ControlModifier);
    stage.desk().advance(std::chrono::seconds(1));
    stage.settle();
    const QByteArray body = stage.desk().http().lastRequest().body;
    EXPECT_TRUE(body.contains("category=marketing") && body.contains("More%2C%20please"))
        << body.constData();
    EXPECT_EQ(form.result(), u"Your feedback is on its way.");
}

TEST_F(FeedbackTest, anAddressIsOnlyDoubtedWhereItCannotBeOne) {
    for (const auto& fine : {u""_s, u"  "_s, u"a@b.de"_s, u" ü.x+y@sub.example.org "_s}) {
        form().setEmail(fine);
        EXPECT_EQ(form().emailHint(), QString()) << qPrintable(fine);
    }
    for (const auto& odd :
         {u"a"_s, u"a@b"_s, u"@b.de"_s, u"a@b@c.de"_s, u"a b@c.de"_s, u"a@b."_s}) {
        form().setEmail(odd);
        EXPECT_NE(form().emailHint(), QString()) << qPrintable(odd);
    }
}

} // namespace
} // namespace skipnest::ui
