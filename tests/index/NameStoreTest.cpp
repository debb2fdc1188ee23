// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/index/NameStore.h"
#include "platform/linux/index/NameFolding.h"
#include "platform/linux/index/NameTableBuilder.h"

#include <gmock/gmock.h>

namespace skipnest::linuxdesktop {
namespace {

using platform::FileQuery;
using platform::IndexedFile;
using testing::ElementsAre;
using testing::IsEmpty;
using Kind = NameTableBuilder::Kind;

Title title(const char* path, const char* name, IndexedFile::Kind kind,
            std::initializer_list<const char*> others = {}) {
    Title made{{QString::fromUtf8(path), QString::fromUtf8(name), kind},
               {foldedName(std::string_view(name))}};
    for (const char* other : others)
        made.folded.push_back(foldedName(std::string_view(other)));
    return made;
}

// A home with applications beside it.
NameStore home() {
    NameTableBuilder builder;
    const auto root = builder.addRoot("/home/anna");
    const auto documents = builder.add(root, "Dokumente", Kind::folder);
    builder.add(root, "Filme", Kind::folder);
    const auto work = builder.add(documents, "Arbeit", Kind::folder);
    builder.add(work, "Übersicht Firma.pdf", Kind::file);
    builder.add(work, "über uns.txt", Kind::file);
    builder.add(work, "fire\nwall.txt", Kind::file);
    builder.add(documents, "Zeugnis \u202Eabc.pdf", Kind::file);
    builder.add(root, "Confirmation.eml", Kind::file);
    return NameStore(builder.build())
        .withTitles({
            title("/a/firefox.desktop", "Firefox", IndexedFile::Kind::application, {"Web Browser"}),
            title("/a/writer.desktop", "LibreOffice Writer", IndexedFile::Kind::application),
            title("/a/settings.desktop", "Einstellungen", IndexedFile::Kind::application,
                  {"Settings"}),
            title("/home/anna/Dokumente", "Dokumente", IndexedFile::Kind::folder, {"Documents"}),
        });
}

std::vector<std::string> names(const NameStore& store, const char* text, int limit = 24,
                               FileQuery::Contents contents = FileQuery::Contents::everything) {
    std::vector<std::string> found;
    for (const IndexedFile& file : store.search({QString::fromUtf8(text), contents, limit}))
        found.push_back(file.displayName.toStdString());
    return found;
}

struct SearchRow {
    const char* text;
    std::vector<std::string> found;
};

class SearchTest : public testing::TestWithParam<SearchRow> {};

TEST_P(SearchTest, BestFirst) {
    EXPECT_EQ(names(home(), GetParam().text), GetParam().found);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, SearchTest,
    testing::Values(
        // What begins with it before what contains it, applications before others, then by name.
        SearchRow{"fi",
                  {"Firefox", "Filme", "fire\nwall.txt", "LibreOffice Writer", "Confirmation.eml",
                   "Übersicht Firma.pdf"}},
        SearchRow{"UBER", {"über uns.txt", "Übersicht Firma.pdf"}},
        SearchRow{"über uns", {"über uns.txt"}},
        // By any of its names, shown by the one people see, and once.
        SearchRow{"dok", {"Dokumente"}}, SearchRow{"docum", {"Dokumente"}},
        SearchRow{"settings", {"Einstellungen"}}, SearchRow{"browser", {"Firefox"}},
        SearchRow{"e\nw", {"fire\nwall.txt"}}, SearchRow{"\u202E", {"Zeugnis \u202Eabc.pdf"}},
        // Nothing is part of an expression.
        SearchRow{"*", {}}, SearchRow{".*", {}}, SearchRow{"'", {}}, SearchRow{"\u0308", {}},
        SearchRow{"", {}}));

TEST(NameStoreTest, LimitsAfterRankingAndHoldsToTheKindAsked) {
    EXPECT_THAT(names(home(), "fi", 2), ElementsAre("Firefox", "Filme"));
    EXPECT_THAT(names(home(), "fi", 24, FileQuery::Contents::applications),
                ElementsAre("Firefox", "LibreOffice Writer"));
    EXPECT_THAT(names(home(), "fi", 0), IsEmpty());
}

TEST(NameStoreTest, PathsLeadThroughTheFoldersTheyWereFoundIn) {
    const NameStore store = home();
    const auto found =
        store.search({QStringLiteral("sicht firma"), FileQuery::Contents::everything, 24});
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].path, QStringLiteral("/home/anna/Dokumente/Arbeit/Übersicht Firma.pdf"));
    const auto work = store.find("/home/anna/Dokumente/Arbeit");
    ASSERT_TRUE(work);
    EXPECT_EQ(store.path(*work), "/home/anna/Dokumente/Arbeit");
    EXPECT_TRUE(store.find("/home/anna"));
    for (const char* path : {"/home/ann", "/home/annas", "/home/anna/dokumente", "/", "",
                             "/home/anna/Dokumente/Arbeit/über uns.txt"})
        EXPECT_FALSE(store.find(path)) << path;
}

TEST(NameStoreTest, WhatLiesInAFolderThatHasGoneIsGoneWithIt) {
    const NameStore store = home();
    NameStore::Gone gone = store.gone();
    gone[*store.find("/home/anna/Dokumente/Arbeit")] = true;
    NameTableBuilder recent(store.base().size());
    const auto folder = recent.add(*store.find("/home/anna/Dokumente"), "Arbeiten", Kind::folder);
    recent.add(folder, "Über mich.odt", Kind::file);
    const NameStore changed = store.withChanges(recent.build(), gone);
    EXPECT_THAT(names(changed, "über"), ElementsAre("Über mich.odt"));
    EXPECT_THAT(names(changed, "arbeit"), ElementsAre("Arbeiten"));
    EXPECT_FALSE(changed.find("/home/anna/Dokumente/Arbeit"));
    const auto found = changed.find("/home/anna/Dokumente/Arbeiten");
    ASSERT_TRUE(found);
    EXPECT_EQ(changed.path(*found), "/home/anna/Dokumente/Arbeiten");
}

} // namespace
} // namespace skipnest::linuxdesktop
