// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/index/IndexCache.h"
#include "platform/linux/index/NameFolding.h"
#include "platform/linux/index/NameTableBuilder.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <random>

#include <sys/stat.h>

namespace skipnest::linuxdesktop {
namespace {

using testing::ElementsAreArray;
using Kind = NameTableBuilder::Kind;

struct FoldRow {
    const char* name;
    const char* folded;
};

class FoldingTest : public testing::TestWithParam<FoldRow> {};

TEST_P(FoldingTest, LeavesNeitherCaseNorMarks) {
    EXPECT_EQ(foldedName(std::string_view(GetParam().name)), GetParam().folded);
    EXPECT_EQ(foldedName(QString::fromUtf8(GetParam().name)), GetParam().folded);
}

INSTANTIATE_TEST_SUITE_P(
    Names, FoldingTest,
    testing::Values(FoldRow{"README.md", "readme.md"}, FoldRow{"Übung ÄÖ.pdf", "ubung ao.pdf"},
                    FoldRow{"U\u0308bung", "ubung"}, // as other systems write it
                    FoldRow{"STRASSE", "strasse"}, FoldRow{"Straße", "strasse"},
                    FoldRow{"İstanbul", "istanbul"}, FoldRow{"Crème Brûlée", "creme brulee"},
                    FoldRow{"Øre", "øre"}, FoldRow{"Отчёт", "отчет"}, FoldRow{"日本", "日本"},
                    FoldRow{"🎉 Fest", "🎉 fest"}, FoldRow{"a\nb", "a\nb"}, FoldRow{"", ""}));

// Names as people have them, all their spellings and a few hundred blocks of them.
std::vector<std::string> manyNames(std::size_t count) {
    constexpr std::array words{"Rechnung", "Über", "photo", "2024-03", "IMG_", "notes", "Straße",
                               "x",        "🎉",    "a\nb",  "Angebot", "ß",    "qz",    "Éclair"};
    constexpr std::array ends{".pdf", ".JPG", "", ".tar.gz"};
    std::mt19937 random(7);
    std::vector<std::string> names;
    while (names.size() < count) {
        std::string name = words[random() % words.size()];
        name += std::string(" ") + words[random() % words.size()];
        names.push_back(name + std::to_string(random() % 1000) + ends[random() % ends.size()]);
    }
    return names;
}

NameTableBuilder builderOf(const std::vector<std::string>& names) {
    NameTableBuilder builder;
    const auto root = builder.addRoot("/home/anna");
    for (std::size_t at = 0; at < names.size(); ++at)
        builder.add(root, names[at], at % 9 == 0 ? Kind::folder : Kind::file);
    return builder;
}

std::vector<NameTable::Id> ids(const NameTable& table, std::string_view text,
                               void (NameTable::*visit)(std::string_view, const NameTable::Visit&)
                                   const) {
    std::vector<NameTable::Id> found;
    (table.*visit)(text, [&](NameTable::Id id) {
        found.push_back(id);
        return true;
    });
    return found;
}

TEST(NameTableTest, FindsWhatLookingAtEveryNameFinds) {
    for (const std::size_t count : {0U, 1U, 63U, 64U, 65U, 5000U}) {
        const NameTable table = builderOf(manyNames(count)).build();
        ASSERT_EQ(table.size(), count);
        for (const char* text :
             {"r", "e", "qz", "ub", "uber", "rechnung", "strasse", "ss", "🎉", "a\nb", ".pdf",
              "g2024-03", "no such name", "zz", "\xff", "7.jpg"}) {
            std::vector<NameTable::Id> begins;
            std::vector<NameTable::Id> contains;
            for (NameTable::Id id = 0; id < table.size(); ++id) {
                const std::string_view folded = table.folded(id);
                if (folded.starts_with(text))
                    begins.push_back(id);
                else if (folded.find(text) != std::string_view::npos)
                    contains.push_back(id);
            }
            EXPECT_THAT(ids(table, text, &NameTable::visitBeginning), ElementsAreArray(begins))
                << text << " in " << count;
            EXPECT_THAT(ids(table, text, &NameTable::visitContaining), ElementsAreArray(contains))
                << text << " in " << count;
        }
    }
}

TEST(NameTableTest, KeepsSpellingKindAndPlaceThroughTheSorting) {
    NameTableBuilder builder;
    const auto root = builder.addRoot("/r");
    const auto folder = builder.add(root, "Zürich", Kind::folder);
    builder.setTime(folder, 77);
    for (int number = 0; number < 200; ++number)
        builder.add(folder, "Ä" + std::to_string(number), Kind::file);
    builder.add(root, "straße", Kind::folder);
    const NameTable table = builder.build();
    int below = 0;
    for (NameTable::Id id = 0; id < table.size(); ++id) {
        EXPECT_EQ(foldedName(table.name(id)), table.folded(id));
        EXPECT_TRUE(id == 0 || table.folded(id - 1) <= table.folded(id));
        if (table.name(id) == "Zürich") {
            EXPECT_EQ(table.folderTime(id), 77U);
        }
        if (table.parent(id) < NameTable::firstRoot) {
            ++below;
            EXPECT_FALSE(table.isFolder(id));
            EXPECT_EQ(table.name(table.parent(id)), "Zürich");
        }
    }
    EXPECT_EQ(below, 200);
}

class IndexCacheTest : public testing::Test {
protected:
    QByteArray written() {
        EXPECT_TRUE(saveNames(table, file));
        QFile bytes(file);
        EXPECT_TRUE(bytes.open(QIODevice::ReadOnly));
        return bytes.readAll();
    }
    void overwrite(const QByteArray& bytes) {
        QFile damaged(file);
        ASSERT_TRUE(damaged.open(QIODevice::WriteOnly | QIODevice::Truncate));
        damaged.write(bytes);
    }

    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("cache/names"));
    const NameTable table = builderOf(manyNames(300)).build();
};

TEST_F(IndexCacheTest, GivesBackWhatWasSavedAndIsForTheUserOnly) {
    EXPECT_FALSE(loadNames(file));
    (void)written();
    const auto loaded = loadNames(file);
    ASSERT_TRUE(loaded);
    ASSERT_EQ(loaded->size(), table.size());
    for (NameTable::Id id = 0; id < table.size(); ++id)
        ASSERT_EQ(loaded->name(id), table.name(id));
    EXPECT_EQ(loaded->root(0), "/home/anna");
    struct stat status {};
    ASSERT_EQ(::stat(QFile::encodeName(file).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0600U);
    ASSERT_EQ(
        ::stat(QFile::encodeName(folder.filePath(QStringLiteral("cache"))).constData(), &status),
        0);
    EXPECT_EQ(status.st_mode & 07777U, 0700U);
}

TEST_F(IndexCacheTest, RefusesEveryChangedByteAndEveryShorterFile) {
    const QByteArray good = written();
    const qsizetype behindHeader = sizeof(NameTableHeader);
    for (qsizetype at = 0; at < good.size(); at += at < behindHeader ? 1 : 501) {
        QByteArray bad = good;
        bad[at] = static_cast<char>(bad[at] ^ 0x20);
        overwrite(bad);
        EXPECT_FALSE(loadNames(file)) << "byte " << at;
        overwrite(good.left(at));
        EXPECT_FALSE(loadNames(file)) << "cut to " << at;
    }
    overwrite(good + QByteArray(8, '\0'));
    EXPECT_FALSE(loadNames(file));
    overwrite(good);
    EXPECT_TRUE(loadNames(file));
}

// A file may be damaged and right by its checksum: the reader itself has to hold.
TEST_F(IndexCacheTest, ReadsNothingOutsideATableThatLiesAboutItself) {
    const QByteArray good = written();
    std::mt19937 random(11);
    int accepted = 0;
    for (int round = 0; round < 400; ++round) {
        QByteArray bytes = good;
        const auto at = static_cast<qsizetype>(random() % static_cast<unsigned>(bytes.size()));
        const bool inHeader = round % 4 == 0;
        bytes[inHeader ? 16 + at % 40 : at] = static_cast<char>(random());
        std::vector<std::uint64_t> memory(static_cast<std::size_t>(bytes.size()) / 8);
        std::memcpy(memory.data(), bytes.constData(), memory.size() * 8);
        const std::span<char> span(reinterpret_cast<char*>(memory.data()), memory.size() * 8);
        const std::uint64_t checksum = nameTableChecksum(span);
        std::memcpy(span.data() + offsetof(NameTableHeader, checksum), &checksum, sizeof checksum);
        const auto opened = NameTable::open({nullptr, span});
        if (!opened)
            continue;
        ++accepted;
        for (NameTable::Id id = 0; id < opened->size(); ++id) {
            (void)opened->name(id);
            (void)(opened->isFolder(id) ? opened->folderTime(id) : 0);
        }
        (void)ids(*opened, "e", &NameTable::visitContaining);
        (void)ids(*opened, "re", &NameTable::visitBeginning);
    }
    EXPECT_GT(accepted, 0) << "the damage never got past the checks: nothing was tried";
}

} // namespace
} // namespace skipnest::linuxdesktop
