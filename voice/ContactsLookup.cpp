// SPDX-License-Identifier: Apache-2.0
#include "voice/ContactsLookup.h"

#include "voice/FoldedText.h"
#include "voice/PhoneNumber.h"
#include "voice/PhoneticKey.h"

#include <algorithm>
#include <array>
#include <tuple>

namespace skipnest::voice {
namespace {

using platform::Contact;

// Spoken before a name and not part of it.
constexpr std::array titles{U"herr", U"herrn", U"frau", U"mr",   U"mrs",
                            U"ms",   U"miss",  U"dr",   U"prof", U"professor"};

bool isTitle(const std::u32string& word) {
    return std::ranges::any_of(titles, [&word](const char32_t* title) { return word == title; });
}

// "jorg" of "Jörg": letters without what stands above or below them.
std::u32string withoutAccents(const QString& folded) {
    std::u32string plain;
    for (const char32_t c : folded.normalized(QString::NormalizationForm_KD).toUcs4()) {
        if (!QChar::isMark(c))
            plain += c;
    }
    return plain;
}

// "joerg" of "Jörg", as German writes where it has no umlauts.
std::u32string withLettersForUmlauts(const QString& folded) {
    QString spelled = folded.normalized(QString::NormalizationForm_C);
    spelled.replace(u'ä', QStringLiteral("ae"));
    spelled.replace(u'ö', QStringLiteral("oe"));
    spelled.replace(u'ü', QStringLiteral("ue"));
    return withoutAccents(spelled);
}

QString joined(const QString& first, const QString& second) {
    return first.isEmpty() || second.isEmpty() ? first + second : first + u' ' + second;
}

QString displayName(const Contact& contact) {
    const QString formatted = contact.formattedName.simplified();
    if (!formatted.isEmpty())
        return formatted;
    const QString name = joined(contact.givenName, contact.familyName).simplified();
    if (!name.isEmpty())
        return name;
    return contact.nicknames.isEmpty() ? QString() : contact.nicknames.first().simplified();
}

// The digits as written, where their country is not known.
QString plainDigits(const QString& written) {
    QString digits;
    for (const char32_t c : written.toUcs4()) {
        if (const int digit = QChar::digitValue(c); digit >= 0)
            digits += QChar(u'0' + digit);
    }
    return digits;
}

// One person in two address books: the same name, and nothing that tells them apart.
bool isSamePerson(const ContactsLookup::Person& a, const ContactsLookup::Person& b) {
    const auto agree = [](const std::optional<QString>& one, const std::optional<QString>& other) {
        return !one || !other || one->compare(*other, Qt::CaseInsensitive) == 0;
    };
    return a.name.compare(b.name, Qt::CaseInsensitive) == 0 && agree(a.phone, b.phone) &&
           agree(a.email, b.email);
}

} // namespace

std::vector<ContactsLookup::NameWord> ContactsLookup::wordsIn(const QString& name) {
    std::vector<NameWord> words;
    QString word;
    const auto end = [&] {
        const QString folded = std::exchange(word, {}).toCaseFolded();
        if (folded.isEmpty())
            return;
        NameWord made{withoutAccents(folded), withLettersForUmlauts(folded), {}};
        made.sound = phoneticKey(foldedText(folded));
        if (!isTitle(made.plain))
            words.push_back(std::move(made));
    };
    for (const char32_t c : name.toUcs4()) {
        if (QChar::isLetterOrNumber(c) || QChar::isMark(c))
            word += QString::fromUcs4(&c, 1);
        else if (c != U'\'' && c != U'’' && c != U'.')
            end();
    }
    end();
    return words;
}

ContactsLookup::Entry ContactsLookup::entryOf(const Contact& contact) const {
    Entry entry;
    entry.person.id = contact.identifier;
    entry.person.name = displayName(contact);
    for (const QString& phone : contact.phones) {
        const auto number = internationalNumber(phone, country_);
        const QString digits = number ? *number : plainDigits(phone);
        // One that a link can reach from everywhere goes before one that it cannot.
        if (digits.isEmpty() || (entry.person.phone && !number))
            continue;
        entry.person.phone = digits;
        if (number)
            break;
    }
    if (!contact.emails.isEmpty())
        entry.person.email = contact.emails.first();

    const auto add = [&entry](const QString& name) {
        auto words = wordsIn(name);
        if (words.empty())
            return;
        for (const NameWord& word : words) {
            const auto isSame = [&word](const NameWord& known) {
                return known.plain == word.plain;
            };
            if (std::ranges::none_of(entry.words, isSame))
                entry.words.push_back(word);
        }
        entry.whole.push_back(std::move(words));
    };
    add(joined(contact.givenName, contact.familyName));
    add(joined(contact.familyName, contact.givenName));
    add(contact.formattedName);
    for (const QString& nickname : contact.nicknames)
        add(nickname);
    return entry;
}

std::optional<ContactsLookup::Closeness>
ContactsLookup::closeness(const std::vector<SaidWord>& spoken, const Entry& entry) {
    const auto equal = [](const SaidWord& said, const NameWord& word) {
        return said.word.plain == word.plain || said.word.spelled == word.spelled ||
               said.word.plain == word.spelled || said.word.spelled == word.plain;
    };
    // Two letters begin half of all names.
    const auto begins = [&](const SaidWord& said, const NameWord& word) {
        return equal(said, word) ||
               (said.word.plain.size() >= 3 && (word.plain.starts_with(said.word.plain) ||
                                                word.spelled.starts_with(said.word.spelled)));
    };
    // A key alone would let "Kai" be "Guy": some letters must be right too, as in "Meier" and
    // "Mayr".
    const auto sounds = [&](const SaidWord& said, const NameWord& word) {
        const std::size_t longer = std::max(said.word.plain.size(), word.plain.size());
        const bool soundsSame = !said.word.sound.empty() && said.word.sound == word.sound;
        const std::size_t most = mostDistance(soundsSame ? 0.35 : 0.8, longer);
        return equal(said, word) || (longer >= 3 && said.distance.to(word.plain, most) <= most);
    };
    for (const auto& name : entry.whole) {
        if (std::ranges::equal(spoken, name, equal))
            return Closeness::whole;
    }
    // Each spoken word is another word of the name. Names are short: the first that fits is taken.
    const auto all = [&](const auto& fits) {
        std::vector<bool> isTaken(entry.words.size());
        return std::ranges::all_of(spoken, [&](const SaidWord& said) {
            for (std::size_t i = 0; i < entry.words.size(); ++i) {
                if (!isTaken[i] && fits(said, entry.words[i])) {
                    isTaken[i] = true;
                    return true;
                }
            }
            return false;
        });
    };
    if (all(equal))
        return Closeness::words;
    if (all(begins))
        return Closeness::beginning;
    if (all(sounds))
        return Closeness::sound;
    return std::nullopt;
}

void ContactsLookup::refresh(std::function<void()> done) {
    fetch_ = store_.fetch([this, done = std::move(done)](const std::vector<Contact>& contacts) {
        take(contacts);
        if (done)
            done();
    });
}

void ContactsLookup::take(const std::vector<Contact>& contacts) {
    entries_.clear();
    for (const Contact& contact : contacts) {
        Entry entry = entryOf(contact);
        if (!entry.person.name.isEmpty() && !entry.words.empty())
            entries_.push_back(std::move(entry));
    }
    std::ranges::stable_sort(entries_, [](const Entry& a, const Entry& b) {
        return a.person.name.compare(b.person.name, Qt::CaseInsensitive) < 0;
    });
}

std::vector<ContactsLookup::Match> ContactsLookup::matches(const QString& spoken) const {
    // A name is short and has few words.
    constexpr qsizetype longest = 200;
    constexpr std::size_t mostWords = 8;
    std::vector<Match> found;
    std::vector<SaidWord> words;
    for (const NameWord& word : wordsIn(spoken.size() > longest ? QString() : spoken))
        words.push_back({word, EditDistance(word.plain)});
    if (words.empty() || words.size() > mostWords)
        return found;
    for (const Entry& entry : entries_) {
        const auto close = closeness(words, entry);
        if (!close)
            continue;
        const auto known = std::ranges::find_if(
            found, [&](const Match& match) { return isSamePerson(match.person, entry.person); });
        if (known == found.end()) {
            found.push_back({entry.person, *close});
            continue;
        }
        known->closeness = std::min(known->closeness, *close);
        if (!known->person.phone)
            known->person.phone = entry.person.phone;
        if (!known->person.email)
            known->person.email = entry.person.email;
    }
    std::ranges::stable_sort(found, {}, &Match::closeness);
    if (found.size() > mostMatches)
        found.resize(mostMatches);
    return found;
}

std::vector<ContactsLookup::Person> ContactsLookup::people(const QString& spoken) const {
    std::vector<Person> people;
    for (Match& match : matches(spoken))
        people.push_back(std::move(match.person));
    return people;
}

int ContactsLookup::authorizationStatus() const {
    return static_cast<int>(store_.authorization());
}

} // namespace skipnest::voice
