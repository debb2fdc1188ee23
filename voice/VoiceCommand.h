// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

namespace skipnest::voice {

// One spoken phrase, German, English or both, as a target and the steps to take there. Text alone:
// nothing here knows a system, and nothing fails.
class VoiceCommand {
public:
    enum class Verb : std::uint8_t { open, goTo, search, close, quit, minimize, hide };
    enum class WinVerb : std::uint8_t { close, minimize, hide, quit };

    // A website that people name by a word.
    struct Site {
        QUrl url;
        std::optional<QString> search; // an address with "%q" in the place of the words

        bool operator==(const Site&) const = default;
    };

    struct OpenSite {
        QUrl url;
        bool operator==(const OpenSite&) const = default;
    };
    struct Search {
        QString query;
        std::optional<QString> site; // its template; without one the browser's own search
        bool operator==(const Search&) const = default;
    };
    struct Find {
        QString text;
        bool operator==(const Find&) const = default;
    };
    struct Window {
        WinVerb verb;
        bool operator==(const Window&) const = default;
    };
    struct Dictate {
        QString text; // as spoken
        bool operator==(const Dictate&) const = default;
    };
    struct MoveFile {
        QString name;
        QString from; // empty: the Downloads folder
        QString to;
        bool operator==(const MoveFile&) const = default;
    };
    using Step = std::variant<OpenSite, Search, Find, Window, Dictate, MoveFile>;

    struct Parsed {
        QString target; // empty: the steps act on the application in front
        std::vector<Step> steps;

        bool operator==(const Parsed&) const = default;
    };

    [[nodiscard]] static Parsed parse(const QString& transcript);

    // Runs of letters, digits and full stops.
    [[nodiscard]] static QStringList tokenize(const QString& text);
    // The first of the words that reads like a web address; "https://" is put in front where no
    // scheme is.
    [[nodiscard]] static std::optional<QUrl> spokenURL(const QStringList& words);
    // By its exact lower-case word.
    [[nodiscard]] static std::optional<Site> site(const QString& named);
    [[nodiscard]] static bool hasMoveVerb(const QString& text);
    [[nodiscard]] static bool isConnector(const QString& word);
    [[nodiscard]] static bool isJumpFiller(const QString& word);
    [[nodiscard]] static bool isDictationTrigger(const QString& word);
    [[nodiscard]] static std::optional<Verb> verb(const QString& word);
    // "one" to "neun" as 1 to 9.
    [[nodiscard]] static std::optional<int> number(const QString& word);
};

} // namespace skipnest::voice
