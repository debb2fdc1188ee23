// SPDX-License-Identifier: Apache-2.0
#include "tests/service/Endpoints.h"

#include "tests/service/FormReader.h"

#include <gmock/gmock.h>

#include <ostream>

namespace skipnest::tests {
namespace {

constexpr auto someone = "5f3f1c5e-9f0b-4a57-8f6e-1f2d3c4b5a69";

ServiceRequest request(const QByteArray& method, const QByteArray& path, const QByteArray& form) {
    ServiceRequest made{method, path, {}, {{"user-agent", "Skipnest/0.1.0"}}, {}};
    if (method == "POST") {
        made.headers["content-type"] = "application/x-www-form-urlencoded";
        made.body = form;
    } else {
        made.query = form;
    }
    return made;
}

struct Row {
    const char* what;
    const char* method;
    const char* path;
    const char* form; // "ID" stands for an identifier
    bool isRight;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.what;
}

class RequestFormTest : public testing::TestWithParam<Row> {};

TEST_P(RequestFormTest, isJudged) {
    const Row& row = GetParam();
    const auto judged =
        checkRequest(request(row.method, row.path, QByteArray(row.form).replace("ID", someone)));
    EXPECT_EQ(judged.ok(), row.isRight)
        << row.what << ": " << (judged ? "taken" : qPrintable(judged.failure().detail));
}

constexpr auto board = "/leaderboard.php";
constexpr auto submission = "i=ID&n=Ada&j=7&m=1&s=2&v=0.1.0&e=pro&c=gb";
const Row rows[] = {
    {"submission", "POST", board, submission, true},
    {"a name of other letters", "POST", board,
     "i=ID&n=%C3%84da%20%F0%9F%90%9D&j=7&m=1&s=2&v=1&e=pro&c=", true},
    {"by GET", "GET", board, submission, false},
    {"negative jumps", "POST", board, "i=ID&n=Ada&j=-7&m=1&s=2&v=1&e=pro&c=gb", false},
    {"a field too few", "POST", board, "i=ID&n=Ada&j=7&m=1&s=2&v=1&e=pro", false},
    {"a field too many", "POST", board, "i=ID&n=Ada&j=7&m=1&s=2&v=1&e=pro&c=gb&target=Mail", false},
    {"a field twice", "POST", board, "i=ID&i=ID&n=Ada&j=7&m=1&s=2&v=1&e=pro&c=gb", false},
    {"a blank as plus", "POST", board, "i=ID&n=Ada+L&j=7&m=1&s=2&v=1&e=pro&c=gb", false},
    {"a raw letter", "POST", board, "i=ID&n=\xC3\x84&j=7&m=1&s=2&v=1&e=pro&c=gb", false},
    {"half an escape", "POST", board, "i=ID&n=Ada%2&j=7&m=1&s=2&v=1&e=pro&c=gb", false},
    {"no UTF-8", "POST", board, "i=ID&n=%FF&j=7&m=1&s=2&v=1&e=pro&c=gb", false},
    {"a country in capitals", "POST", board, "i=ID&n=Ada&j=7&m=1&s=2&v=1&e=pro&c=GB", false},
    {"removal", "POST", board, "action=remove&i=ID", true},
    {"another action", "POST", board, "action=reset&i=ID", false},
    {"name check", "GET", board, "api=checkname&n=Ada&i=ID", true},
    {"board of nobody", "GET", board, "api=full&i=", true},
    {"feedback with address", "POST", "/feedback.php", "category=bug&message=a%0Ab&email=a%40b.org",
     true},
    {"feedback without text", "POST", "/feedback.php", "category=bug&message=%20%0A", false},
    {"an empty address", "POST", "/feedback.php", "category=bug&message=a&email=", false},
    {"release", "GET", "/version.json", "", true},
    {"release asked with fields", "GET", "/version.json", "id=ID", false},
    {"install ping", "GET", "/version.php", "v=0.1.0&b=12&e=pro&id=ID&r=new", true},
    {"funnel ping", "GET", "/version.php", "v=0.1.0&b=12&e=pro&id=ID&stage=onboarded&r=update",
     true},
    {"an unknown stage", "GET", "/version.php", "v=0.1.0&b=12&e=pro&id=ID&stage=Mail&r=new", false},
    {"crash", "POST", "/crash.php",
     "v=1&b=1&e=pro&id=ID&type=signal&name=SIGSEGV&reason=&stack=skipnest%2B0x1f%0Alibc.so.6%2B0x2",
     true},
    {"a path in a stack", "POST", "/crash.php",
     "v=1&b=1&e=pro&id=ID&type=signal&name=SIGSEGV&reason=&stack=%2Fhome%2Fada%2Fx%2B0x1f", false},
    {"voice", "GET", "/voice.php", "o=pick&id=ID&l=de", true},
    {"a transcript", "GET", "/voice.php", "o=open%20mail&id=ID&l=de", false},
    {"share", "GET", "/share.php", "j=1&m=0&s=0&t=12", true},
    {"unknown page", "GET", "/other.php", "", false},
};
INSTANTIATE_TEST_SUITE_P(Forms, RequestFormTest, testing::ValuesIn(rows));

TEST(RequestHeadersTest, contentTypeAndWhatTellsOfThePersonAreJudged) {
    const ServiceRequest right = request("POST", "/feedback.php", "category=other&message=hello");
    ASSERT_TRUE(checkRequest(right));
    const std::pair<const char*, const char*> wrong[] = {
        {"content-type", "application/json"},
        {"content-type", "application/x-www-form-urlencoded; charset=utf-8"},
        {"cookie", "a=b"},
        {"accept-language", "de-DE,en,*"},
        {"authorization", "Basic YTpi"},
        {"user-agent", "Mozilla/5.0"},
    };
    for (const auto& [name, value] : wrong) {
        ServiceRequest changed = right;
        changed.headers[name] = value;
        EXPECT_FALSE(checkRequest(changed)) << name << ": " << value;
    }
}

TEST(ServiceRequestTest, isReadWhenItIsWholeAndRefusedWhenItIsNone) {
    const QByteArray whole = "POST /a?b=c HTTP/1.1\r\nHost: h\r\nContent-Length: 3\r\n\r\nx=y";
    for (qsizetype length = 0; length < whole.size(); ++length) {
        const auto part = readRequest(whole.left(length));
        ASSERT_TRUE(part) << length;
        EXPECT_FALSE(*part) << length;
    }
    const auto read = readRequest(whole);
    ASSERT_TRUE(read && *read);
    EXPECT_EQ((*read)->path, "/a");
    EXPECT_EQ((*read)->query, "b=c");
    EXPECT_EQ((*read)->body, "x=y");
    const auto plain = readRequest("GET /a HTTP/1.1\r\nHost: h\r\n\r\n");
    ASSERT_TRUE(plain && *plain);
    EXPECT_EQ((*plain)->path, "/a");
    for (const char* bytes : {"\x16\x03\x01\r\n\r\n", "GET / HTTP/1.0\r\n\r\n",
                              "GET / HTTP/1.1\r\nHost: a\r\nHost: b\r\n\r\n",
                              "GET / HTTP/1.1\r\nContent-Length: -1\r\n\r\n"})
        EXPECT_FALSE(readRequest(bytes)) << bytes;
}

} // namespace
} // namespace skipnest::tests
