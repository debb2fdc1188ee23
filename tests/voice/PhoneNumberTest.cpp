// SPDX-License-Identifier: Apache-2.0
#include "voice/PhoneNumber.h"

#include "voice/DialingPlans.h"

#include <gmock/gmock.h>

#include <ostream>
#include <set>
#include <string>

namespace skipnest::voice {
namespace {

using namespace Qt::StringLiterals;

struct Written {
    const char* number;
    const char* country;
    const char* international; // null: none
};
void PrintTo(const Written& row, std::ostream* out) {
    *out << row.number << " in " << row.country;
}
class PhoneNumberTest : public testing::TestWithParam<Written> {};

TEST_P(PhoneNumberTest, isReadAsWritten) {
    const auto& [number, country, international] = GetParam();
    const auto read = internationalNumber(QString::fromUtf8(number), QString::fromUtf8(country));
    EXPECT_EQ(read.value_or(u"none"_s).toStdString(),
              international != nullptr ? international : "none");
}
const Written numbers[] = {
    {"0171 2345678", "de", "+491712345678"},
    {"+49 171 2345678", "us", "+491712345678"},
    {"+49 (0)171 / 234 56-78", "", "+491712345678"},
    {"0049 (0) 171 2345678", "fr", "+491712345678"},
    {"+49 0171 2345678", "DE", "+491712345678"},
    {"(0) 171 2345678", "de", "+491712345678"},
    {"Tel. 030/123456-78 (privat)", "de", "+493012345678"},
    {"030 123456 ext. 78", "de", "+4930123456"},
    {"030 123456 Durchwahl 78", "de", "+4930123456"},
    {"+1-212-555-0100;ext=9", "de", "+12125550100"},
    {"212.555.0100 x12", "us", "+12125550100"},
    {"(212) 555-0100", "us", "+12125550100"},
    {"1 212 555 0100", "ca", "+12125550100"},
    {"011 49 171 2345678", "us", "+491712345678"},
    {"1-800-FLOWERS", "us", "+18003569377"},
    {"0800 REISEN", "de", "+49800734736"},
    {"020 7946 0958", "gb", "+442079460958"},
    {"044 668 18 00", "ch", "+41446681800"},
    {"0664 1234567", "at", "+436641234567"},
    {"06 698 83712", "it", "+390669883712"},
    {"+39 06 698 83712", "de", "+390669883712"},
    {"612 345 678", "es", "+34612345678"},
    {"8 912 345-67-89", "ru", "+79123456789"},
    {"812 345 67 89", "ru", "+78123456789"},
    {"06 20 123 4567", "hu", "+36201234567"},
    {"001 49 171 2345678", "hk", "+491712345678"},
    {"001 1 212 555 0100", "de", nullptr}, // a digit too many
    {"8 029 123-45-67", "by", "+375291234567"},
    {"٠١٧١٢٣٤٥٦٧٨", "de", "+491712345678"},
    {"＋４９ １７１ ２３４５６７８", "", "+491712345678"},
    {"0171 2345678", "", nullptr},
    {"0171 2345678", "zz", nullptr},
    {"110", "de", nullptr},
    {"110 notruf", "de", nullptr},
    {"*100#", "de", nullptr},
    {"", "de", nullptr},
    {"nobody", "de", nullptr},
    {"+", "de", nullptr},
    {"+999 12345678", "de", nullptr},
    {"+49 171 2345678 / 0172 3456789", "de", nullptr}, // two numbers
    {"+4", "de", nullptr},
};
INSTANTIATE_TEST_SUITE_P(Numbers, PhoneNumberTest, testing::ValuesIn(numbers));

TEST(DialingPlansTest, noCountryCodeBeginsWithAnotherOne) {
    std::set<std::string> codes;
    for (const DialingPlan& plan : dialingPlans()) {
        EXPECT_EQ(std::string(plan.country).size(), 2U);
        codes.insert(plan.code);
    }
    for (auto code = codes.begin(), next = std::next(code); next != codes.end(); ++code, ++next)
        EXPECT_FALSE(next->starts_with(*code)) << *code << ' ' << *next;
}

} // namespace
} // namespace skipnest::voice
