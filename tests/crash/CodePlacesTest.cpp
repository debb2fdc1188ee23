// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/crash/CodePlaces.h"
#include "platform/linux/crash/CrashRecordText.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>

#include <algorithm>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace skipnest::linuxdesktop {
namespace {

constexpr auto mappings =
    "555500000000-555500001000 r--p 00000000 fe:01 11    /opt/My Programs/tool-1.2\n"
    "555500001000-555500003000 r-xp 00001000 fe:01 11    /opt/My Programs/tool-1.2\n"
    "555500003000-555500004000 rw-p 00002000 fe:01 11    /opt/My Programs/tool-1.2\n"
    "555500005000-555500006000 rwxp 00000000 00:00 0     [heap]\n"
    "7f0000000000-7f0000001000 r-xp 00000000 00:00 0 \n"
    "7f0000002000-7f0000003000 r--s 00000000 fe:01 12    /home/tom/letter.odt\n"
    "7f0000004000-7f0000005000 r--p 00000000 fe:01 13    /usr/lib/libone.so.1 (deleted)\n"
    "7f0000005000-7f0000006000 r-xp 00001000 fe:01 13    /usr/lib/libone.so.1 (deleted)\n"
    "7f0000006000-7f0000007000 r--p 00000000 fe:01 14    /usr/lib/libone.so.1\n"
    "7f0000007000-7f0000008000 r-xp 00001000 fe:01 14    /usr/lib/libone.so.1\n"
    "7f0000009000-7f000000a000 r-xp 00000000 fe:01 15    /usr/lib/q\"u\\o\303\244te+x.so\n"
    "ffffffffff600000-ffffffffff601000 --xp 00000000 00:00 0  [vsyscall]\n";

// The list arrives in pieces of this length.
std::vector<std::string> placesOf(const std::vector<std::uintptr_t>& addresses, std::size_t piece) {
    const auto places = std::make_unique<CodePlaces>();
    places->begin(addresses);
    const std::string_view list = mappings;
    for (std::size_t at = 0; at < list.size(); at += piece)
        places->read(list.data() + at, std::min(piece, list.size() - at));
    std::vector<std::string> found;
    for (const CodePlace& place : places->places()) {
        std::ostringstream text;
        text << place.module.data() << '+' << std::hex << place.offset;
        found.push_back(text.str());
    }
    return found;
}

TEST(CodePlaces, codeIsNamedByItsFileAndCountedFromWhereThatBegins) {
    const std::pair<std::uintptr_t, const char*> rows[] = {
        {0x555500001000, "tool-1.2+1000"},
        {0x555500002fff, "tool-1.2+2fff"},
        {0x555500003000, "unknown+555500003000"}, // data of the same file
        {0x555500005010, "heap+10"},
        {0x7f0000000010, "unknown+7f0000000010"}, // made at run time
        {0x7f0000002010, "unknown+7f0000002010"},
        {0x7f0000005001, "libone.so.1+1001"}, // removed, and loaded anew
        {0x7f0000007001, "libone.so.1+1001"},
        {0x7f0000009001, "quote+x.so+1"},
        {0xffffffffff600001, "vsyscall+1"},
        {0, "unknown+0"},
    };
    std::vector<std::uintptr_t> addresses;
    std::vector<std::string> expected;
    for (const auto& [address, place] : rows) {
        addresses.push_back(address);
        expected.emplace_back(place);
    }
    for (const std::size_t piece : {std::size_t{1}, std::size_t{7}, std::size_t{4096}})
        EXPECT_EQ(placesOf(addresses, piece), expected) << piece;
}

TEST(CodePlaces, noLineIsTooLongOrTooShort) {
    const auto places = std::make_unique<CodePlaces>();
    const std::vector<std::uintptr_t> addresses(100, 0x1800);
    places->begin(addresses);
    const std::string name(300, 'n');
    const std::string list = "\n\nzz\n1000-2000\n1000-2000 r-xp 0 1:1 1 /" +
                             std::string(9000, 'p') + "\n1000-2000 r-xp 0 1:1 2 /lib/" + name +
                             '\n';
    places->read(list.data(), list.size());
    ASSERT_EQ(places->places().size(), CallStack::most);
    EXPECT_EQ(places->places().back().module.data(), name.substr(0, CodePlace::longestName));
    EXPECT_EQ(places->places().back().offset, 0x800U);
}

TEST(CrashRecordText, theLongestRecordIsStillOne) {
    CodePlace longest;
    longest.module.fill('m');
    longest.module.back() = '\0';
    longest.offset = ~std::uintptr_t{0};
    const std::vector<CodePlace> stack(CallStack::most, longest);
    const std::string quotes(400, '"');
    const auto text = std::make_unique<CrashRecordText>();
    text->write("exception", quotes, quotes, stack);
    const QJsonObject record =
        QJsonDocument::fromJson(QByteArray(text->text().data(), qsizetype(text->text().size())))
            .object();
    EXPECT_EQ(record[u"name"].toString(), QString(255, u'"'));
    EXPECT_EQ(record[u"stack"].toString().count(u'\n'), qsizetype(CallStack::most) - 1);
    EXPECT_TRUE(record[u"stack"].toString().endsWith(u"m+0xffffffffffffffff"));
}

} // namespace
} // namespace skipnest::linuxdesktop
