// SPDX-License-Identifier: Apache-2.0
#include "tests/service/Endpoints.h"

#include "tests/service/FormReader.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <optional>
#include <vector>

namespace skipnest::tests {
namespace {

using namespace Qt::StringLiterals;
using platform::Failure;
using platform::Result;

// A value, whole, as a regular expression; dots match line breaks too.
constexpr auto identifier = "[0-9A-Fa-f]{8}(-[0-9A-Fa-f]{4}){3}-[0-9A-Fa-f]{12}";
constexpr auto identifierOrNone = "([0-9A-Fa-f]{8}(-[0-9A-Fa-f]{4}){3}-[0-9A-Fa-f]{12})?";
constexpr auto count = "0|[1-9][0-9]{0,14}";
constexpr auto dottedNumbers = "[0-9]{1,9}(\\.[0-9]{1,9}){0,5}";
constexpr auto challenger = "(?! )[^\\p{C}]{1,24}(?<! )";
// Of a signal or a C++ type.
constexpr auto crashName = "[A-Za-z0-9_:<>,*&()\\[\\]{}# '~-]{1,256}";
// Module and offset of each frame, no folder.
constexpr auto stack = "([A-Za-z0-9._+-]{1,64}\\+0x[0-9a-f]{1,16}(\\n(?!\\z)|\\z))*";

struct Field {
    enum class Presence { always, sometimes };
    const char* name;
    const char* form;
    Presence presence = Presence::always;
};

struct Endpoint {
    enum class Sender { program, browser };
    EndpointKind kind;
    const char* method;
    const char* path;
    std::vector<Field> fields;
    Sender sender = Sender::program;
};

const std::vector<Endpoint>& endpoints() {
    static const std::vector<Endpoint> table{
        {EndpointKind::checkName,
         "GET",
         "/leaderboard.php",
         {{"api", "checkname"}, {"n", challenger}, {"i", identifier}}},
        {EndpointKind::board,
         "GET",
         "/leaderboard.php",
         {{"api", "full"}, {"i", identifierOrNone}}},
        {EndpointKind::boardPage, "GET", "/leaderboard.php", {}, Endpoint::Sender::browser},
        {EndpointKind::submit,
         "POST",
         "/leaderboard.php",
         {{"i", identifier},
          {"n", challenger},
          {"j", count},
          {"m", count},
          {"s", count},
          {"v", dottedNumbers},
          {"e", "pro"},
          {"c", "([a-z]{2})?"}}},
        {EndpointKind::remove,
         "POST",
         "/leaderboard.php",
         {{"action", "remove"}, {"i", identifier}}},
        {EndpointKind::feedback,
         "POST",
         "/feedback.php",
         {{"category", "bug|feature|marketing|other"},
          {"message", "(?=.*\\S).{1,60000}"},
          {"email", "[^\\p{C}]{1,320}", Field::Presence::sometimes}}},
        {EndpointKind::release, "GET", "/version.json", {}},
        {EndpointKind::install,
         "GET",
         "/version.php",
         {{"v", dottedNumbers},
          {"b", dottedNumbers},
          {"e", "pro"},
          {"id", identifier},
          {"r", "new|update"}}},
        {EndpointKind::funnel,
         "GET",
         "/version.php",
         {{"v", dottedNumbers},
          {"b", dottedNumbers},
          {"e", "pro"},
          {"id", identifier},
          {"stage", "first_start|onboarded|first_jump"},
          {"r", "new|update"}}},
        {EndpointKind::crash,
         "POST",
         "/crash.php",
         {{"v", dottedNumbers},
          {"b", dottedNumbers},
          {"e", "pro"},
          {"id", identifier},
          {"type", "exception|signal"},
          {"name", crashName},
          {"reason", "[A-Za-z0-9_: ]{0,256}"},
          {"stack", stack}}},
        {EndpointKind::share,
         "GET",
         "/share.php",
         {{"j", count}, {"m", count}, {"s", count}, {"t", count}},
         Endpoint::Sender::browser},
        {EndpointKind::voice,
         "GET",
         "/voice.php",
         {{"o", "hit|miss|pick|fix"}, {"id", identifier}, {"l", "([a-z]{2,3})?"}}},
    };
    return table;
}

Failure wrong(const QString& what) {
    return {Failure::Kind::malformed, what};
}

bool hasForm(const QString& value, const char* form) {
    const QRegularExpression whole(u"\\A(?:%1)\\z"_s.arg(QString::fromLatin1(form)),
                                   QRegularExpression::DotMatchesEverythingOption);
    return whole.match(value).hasMatch();
}

// Every field that must be there is, and no other is.
bool hasTheseFields(const Endpoint& endpoint, const platform::FormFields& given) {
    const auto isGiven = [&](const Field& field) {
        return field.presence == Field::Presence::sometimes ||
               std::ranges::any_of(given, [&](const auto& each) {
                   return each.first == QLatin1StringView(field.name);
               });
    };
    const auto isKnown = [&](const auto& each) {
        return std::ranges::any_of(endpoint.fields, [&](const Field& field) {
            return each.first == QLatin1StringView(field.name);
        });
    };
    return std::ranges::all_of(endpoint.fields, isGiven) && std::ranges::all_of(given, isKnown);
}

// The field that tells the requests of one page apart has its one value.
bool isAddressed(const Endpoint& endpoint, const platform::FormFields& given) {
    return std::ranges::all_of(given, [&](const auto& each) {
        const bool decides = each.first == u"api" || each.first == u"action";
        const auto field = std::ranges::find_if(endpoint.fields, [&](const Field& known) {
            return each.first == QLatin1StringView(known.name);
        });
        return !decides || (field != endpoint.fields.end() && hasForm(each.second, field->form));
    });
}

Result<platform::FormFields> readFields(const ServiceRequest& request) {
    if (request.method == "GET") {
        if (!request.body.isEmpty() || !request.header("content-type").isEmpty())
            return wrong(u"a GET with a body or a content type"_s);
        return readForm(request.query);
    }
    if (request.header("content-type") != "application/x-www-form-urlencoded")
        return wrong(
            u"the content type %1"_s.arg(QString::fromLatin1(request.header("content-type"))));
    if (!request.query.isEmpty())
        return wrong(u"a POST with a query"_s);
    return readForm(request.body);
}

std::optional<Failure> headerThatTells(const ServiceRequest& request) {
    for (const char* name : {"cookie", "authorization", "referer", "from"}) {
        if (!request.header(name).isEmpty())
            return wrong(u"the header %1"_s.arg(QLatin1StringView(name)));
    }
    const QByteArray language = request.header("accept-language");
    if (!language.isEmpty() && language != "*")
        return wrong(u"the header accept-language"_s);
    static const QRegularExpression agent(u"\\ASkipnest/[0-9.]+\\z"_s);
    if (!agent.match(QString::fromLatin1(request.header("user-agent"))).hasMatch())
        return wrong(u"the user agent %1"_s.arg(QString::fromLatin1(request.header("user-agent"))));
    return std::nullopt;
}

} // namespace

QString AcceptedRequest::value(const QString& name) const {
    const auto found =
        std::ranges::find_if(fields, [&](const auto& field) { return field.first == name; });
    return found == fields.end() ? QString() : found->second;
}

Result<AcceptedRequest> checkRequest(const ServiceRequest& request) {
    const auto fields = readFields(request);
    if (!fields)
        return fields.failure();
    const auto endpoint = std::ranges::find_if(endpoints(), [&](const Endpoint& each) {
        return request.method == each.method && request.path == each.path &&
               hasTheseFields(each, *fields) && isAddressed(each, *fields);
    });
    if (endpoint == endpoints().end()) {
        QStringList names;
        for (const auto& [name, value] : *fields)
            names.append(name);
        return wrong(u"no %1 of %2 has the fields %3"_s.arg(QString::fromLatin1(request.method),
                                                            QString::fromLatin1(request.path),
                                                            names.join(u',')));
    }
    for (const auto& given : *fields) {
        const auto field = std::ranges::find_if(endpoint->fields, [&](const Field& each) {
            return given.first == QLatin1StringView(each.name);
        });
        if (!hasForm(given.second, field->form))
            return wrong(u"the field %1 is \"%2\""_s.arg(given.first, given.second));
    }
    if (endpoint->sender == Endpoint::Sender::program) {
        if (const auto tells = headerThatTells(request))
            return *tells;
    }
    return AcceptedRequest{endpoint->kind, *fields};
}

} // namespace skipnest::tests
