// SPDX-License-Identifier: Apache-2.0
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <gmock/gmock.h>

namespace skipnest::cli {
namespace {

using namespace Qt::StringLiterals;
using testing::HasSubstr;

struct Finished {
    int status = -1;
    std::string out;
    std::string err;
};

Finished run(const QStringList& words, const QByteArray& input = {}) {
    QProcess process;
    process.start(QStringLiteral(SKIPNEST_BINARY), words);
    process.write(input);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished());
    return {process.exitCode(), process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString()};
}
// A whole intent with these fields filled.
QByteArray intent(const QJsonObject& filled) {
    QJsonObject object{{u"space"_s, 0}};
    for (const char* name : {"target", "contact", "message", "website", "query", "windowAction",
                             "moveFile", "moveFrom", "moveTo"})
        object.insert(QString::fromLatin1(name), QString());
    for (auto each = filled.begin(); each != filled.end(); ++each)
        object.insert(each.key(), each.value());
    return QJsonDocument(object).toJson();
}

TEST(IntentSubcommandTest, printsTargetAndStepsAndWhatIsNoStep) {
    const auto printed = [](const QString& transcript, const QJsonObject& filled) {
        const Finished finished =
            run({u"intent"_s, u"--transcript"_s, transcript, u"-"_s}, intent(filled));
        EXPECT_EQ(finished.status, 0) << finished.err;
        return finished.out;
    };
    EXPECT_EQ(printed(u"Schreibtisch zwei"_s, {{u"space"_s, 2}}),
              "{\"space\":2,\"steps\":[],\"target\":\"\"}\n");
    EXPECT_EQ(printed(u"whatsapp paul texten hi"_s, {{u"target"_s, u"WhatsApp "_s},
                                                     {u"contact"_s, u"Paul"_s},
                                                     {u"message"_s, u"hi"_s}}),
              "{\"contact\":\"Paul\",\"message\":\"hi\",\"steps\":[],\"target\":\"WhatsApp\"}\n");
    EXPECT_EQ(printed(u"move the screenshot into Documents"_s,
                      {{u"moveFile"_s, u"screenshot"_s}, {u"moveTo"_s, u"Documents"_s}}),
              "{\"steps\":[{\"from\":\"\",\"name\":\"screenshot\",\"step\":\"moveFile\","
              "\"to\":\"Documents\"}],\"target\":\"\"}\n");
    // A move that nobody said: the same as without a model.
    const QString chat = u"go to whatsapp and go to paul"_s;
    EXPECT_EQ(printed(chat, {{u"contact"_s, u"Paul"_s}, {u"moveFile"_s, u"paul"_s}}),
              run({u"parse"_s, chat}).out);
}

TEST(IntentSubcommandTest, refusesWhatIsNoIntent) {
    const QStringList words{u"intent"_s, u"--transcript"_s, u"x"_s, u"-"_s};
    for (const QByteArray& answer :
         {QByteArray(), QByteArray("Sure."), QByteArray(R"({"target":"x"})"),
          intent({{u"space"_s, u"2"_s}}), intent({}).left(40), QByteArray(65 * 1024, ' ')}) {
        const Finished finished = run(words, answer);
        EXPECT_EQ(finished.status, 1);
        EXPECT_EQ(finished.out, "");
        EXPECT_THAT(finished.err, HasSubstr("-: "));
    }
    const Finished withoutPhrase = run({u"intent"_s, u"-"_s}, intent({}));
    EXPECT_EQ(withoutPhrase.status, 2);
    EXPECT_THAT(withoutPhrase.err, HasSubstr("--transcript"));
}

} // namespace
} // namespace skipnest::cli
