// SPDX-License-Identifier: Apache-2.0
#include "platform/FramedMessages.h"

#include <QByteArrayList>

#include <gtest/gtest.h>

namespace skipnest::platform {
namespace {

QByteArrayList readInPieces(const QByteArray& stream, qsizetype piece, MessageReader& reader) {
    QByteArrayList messages;
    for (qsizetype at = 0; at < stream.size(); at += piece) {
        reader.append(stream.constData() + at, std::min(piece, stream.size() - at));
        while (const auto message = reader.next())
            messages.append(*message);
    }
    return messages;
}

TEST(FramedMessages, AreTheSameHoweverTheStreamIsCut) {
    const QByteArrayList sent{"{}", QByteArray(70'000, 'x'), "{\"id\":1}", QByteArray(1, '\0')};
    QByteArray stream;
    for (const QByteArray& message : sent)
        stream += framedMessage(message);
    for (const qsizetype piece : {qsizetype(1), qsizetype(3), qsizetype(4096), stream.size()}) {
        MessageReader reader(70'000);
        EXPECT_EQ(readInPieces(stream, piece, reader), sent) << piece;
        EXPECT_FALSE(reader.isBroken());
    }
}

TEST(FramedMessages, ALengthOfNothingOrAboveTheLimitBreaksTheStreamForGood) {
    struct Row {
        const char* name;
        QByteArray stream;
        qsizetype messages;
        bool broken;
    };
    const QByteArray good = framedMessage("good");
    for (const Row& row : {
             Row{"at the limit", framedMessage(QByteArray(8, 'x')), 1, false},
             Row{"one above", good + framedMessage(QByteArray(9, 'x')) + good, 1, true},
             Row{"nothing", framedMessage({}) + good, 0, true},
             Row{"as much as fits", QByteArray(4, '\xff') + good, 0, true},
         }) {
        MessageReader reader(8);
        EXPECT_EQ(readInPieces(row.stream, 5, reader).size(), row.messages) << row.name;
        EXPECT_EQ(reader.isBroken(), row.broken) << row.name;
    }
}

} // namespace
} // namespace skipnest::platform
