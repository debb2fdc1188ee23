// SPDX-License-Identifier: Apache-2.0
#include "services/CrashRecord.h"

#include <gmock/gmock.h>

namespace skipnest::services {
namespace {

using namespace Qt::StringLiterals;

QByteArray exception(const QByteArray& name, const QByteArray& reason, const QByteArray& stack) {
    return R"({"type":"exception","name":")" + name + R"(","reason":")" + reason +
           R"(","stack":")" + stack + R"("})";
}

TEST(CrashRecord, whatARecordConsistsOfIsTaken) {
    const auto signal = decodeCrashRecord(
        R"({"type":"signal","name":"SIGSEGV","stack":"skipnest+0x1f\nlibc.so.6+0x0"})");
    ASSERT_TRUE(signal.ok());
    EXPECT_EQ(*signal,
              (CrashRecord{u"signal"_s, u"SIGSEGV"_s, {}, u"skipnest+0x1f\nlibc.so.6+0x0"_s}));
    for (const QByteArray& record : {
             exception("std::bad_alloc", "uncaught std::bad_alloc", "a+0x1"),
             exception("std::map<int, a::(anonymous namespace)::B*>", "uncaught exception", ""),
             exception(QByteArray(256, 'n'), QByteArray(256, 'r'),
                       QByteArray(64, 'm') + "+0x0123456789abcdef"),
         })
        EXPECT_TRUE(decodeCrashRecord(record).ok()) << record.constData();
}

TEST(CrashRecord, nothingElseRidesAlong) {
    QByteArray longStack;
    while (longStack.size() <= qsizetype{18} * 1024)
        longStack += "module+0x1\\n";
    longStack += "module+0x1";
    for (const QByteArray& record : {
             QByteArray(),
             QByteArray("[]"),
             QByteArray("{}"),
             QByteArray(R"({"type":"signal","name":"SIGSEGV","stack":"a+0x1")"), // cut
             QByteArray(R"({"type":"signal","name":"SIGSEGV","stack":["a+0x1"]})"),
             QByteArray(R"({"type":"signal","name":"SIGSEGV","stack":"","title":"My letter"})"),
             QByteArray(R"({"type":"signal","name":"SIGSEGV","reason":"why","stack":""})"),
             QByteArray(R"({"type":"signal","name":"Tom","stack":""})"),
             QByteArray(R"({"type":"note","name":"SIGSEGV","stack":""})"),
             exception("", "", ""),
             exception("N\\u0000", "", ""),
             exception("/home/tom/x", "", ""),
             exception("std::bad_alloc", "cannot open /home/tom/x", ""),
             exception("std::bad_alloc", "mail tom@example.org", ""),
             exception(QByteArray(257, 'n'), "", ""),
             exception("n", QByteArray(257, 'r'), ""),
             exception("n", "", longStack),
             exception("n", "", "/home/tom/lib.so+0x1"),
             exception("n", "", "lib.so+0x1 tom"),
             exception("n", "", "lib.so+0x1\\ntom"),
             exception("n", "", "lib.so+0x1\\n"),
             exception("n", "", QByteArray(65, 'm') + "+0x1"),
             exception("n", "", "lib.so+0x12345678901234567"),
         })
        EXPECT_FALSE(decodeCrashRecord(record).ok()) << record.left(200).constData();
}

} // namespace
} // namespace skipnest::services
