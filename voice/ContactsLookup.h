// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/ContactStore.h"
#include "voice/EditDistance.h"

#include <QString>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace skipnest::voice {

// Finds people of the address books by a spoken name. What it knows stays in this process: a name
// or a number goes nowhere but into the link that opens the person's chat.
class ContactsLookup {
public:
    struct Person {
        QString id; // of the address book
        QString name;
        // In international form ("+49171…"), or as digits alone where that cannot be told.
        std::optional<QString> phone;
        std::optional<QString> email;

        bool operator==(const Person&) const = default;
    };

    // How a spoken name fits, best first.
    enum class Closeness {
        whole,     // the whole name in either order, or a nickname
        words,     // each word is a word of the name
        beginning, // each word begins one: "Chris" for Christian
        sound,     // each word sounds like one: "Meier" for Mayr
    };
    struct Match {
        Person person;
        Closeness closeness = Closeness::whole;
    };

    // More are no choice that anybody reads.
    static constexpr std::size_t mostMatches = 8;

    // `country` as in internationalNumber(), of the person's locale.
    ContactsLookup(platform::ContactStore& store, QString country)
        : store_(store), country_(std::move(country)) {}

    // Reads the address books anew, off the main thread; until they are there the last state
    // answers. `done` may be empty.
    void refresh(std::function<void()> done = {});

    // Who may be meant, the closest first, then by name. Case, accents and "ae" for "ä" make no
    // difference, nor do titles such as "Herr" or "Dr.".
    [[nodiscard]] std::vector<Match> matches(const QString& spoken) const;
    [[nodiscard]] std::vector<Person> people(const QString& spoken) const;

    // 0 not determined, 1 restricted, 2 denied, 3 authorized.
    [[nodiscard]] int authorizationStatus() const;

private:
    struct NameWord {
        std::u32string plain;   // without accents
        std::u32string spelled; // "ae" for "ä"
        std::u32string sound;
    };
    struct SaidWord {
        NameWord word;
        EditDistance distance; // to other words, without accents
    };
    struct Entry {
        Person person;
        std::vector<NameWord> words;              // of all its names
        std::vector<std::vector<NameWord>> whole; // each a whole name, in one order
    };

    [[nodiscard]] static std::vector<NameWord> wordsIn(const QString& name);
    [[nodiscard]] static std::optional<Closeness> closeness(const std::vector<SaidWord>& spoken,
                                                            const Entry& entry);
    [[nodiscard]] Entry entryOf(const platform::Contact& contact) const;
    void take(const std::vector<platform::Contact>& contacts);

    platform::ContactStore& store_;
    QString country_;
    platform::ContactFetch fetch_;
    std::vector<Entry> entries_; // by name
};

} // namespace skipnest::voice
