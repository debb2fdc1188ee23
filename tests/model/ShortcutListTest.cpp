// SPDX-License-Identifier: Apache-2.0
#include "Samples.h"
#include "model/ConfigurationCoding.h"
#include "model/ShortcutListViewModel.h"
#include "model/StorageService.h"
#include "platform/JsonDefaults.h"
#include "platform/sim/MemoryFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace skipnest::model {
namespace {

using testing::ElementsAre;

const QString configPath = QStringLiteral("/home/me/Skipnest/config.json");

class ShortcutList : public testing::Test {
protected:
    platform::sim::MemoryFiles files_;
    test::GatheredLines lines_;
    test::SetClock clock_;
    test::PathWorkspace workspace_;
    test::NamedBookmarks bookmarks_;
    platform::JsonDefaults defaults_{files_, QStringLiteral("/home/me/Skipnest/defaults.json")};
    StorageService storage_{files_, lines_, clock_, defaults_, test::appInfo()};
    std::unique_ptr<ShortcutListViewModel> model_;
    QStringList events_; // what the rest of the program was told, in order

    static ShortcutItem item(const QString& name, std::int64_t order) {
        ShortcutItem item;
        item.name = name;
        item.targetPath = u'/' + name;
        item.sortOrder = order;
        item.createdAt = QDateTime(QDate(2026, 1, 1), QTime(12, 0), Qt::UTC);
        return item;
    }

    ShortcutListViewModel& open(std::vector<ShortcutItem> items) {
        AppConfiguration document;
        document.shortcuts = std::move(items);
        files_.put(configPath, encodeConfiguration(document));
        model_ = std::make_unique<ShortcutListViewModel>(
            storage_, workspace_, bookmarks_, files_, clock_, defaults_, test::appInfo(),
            [this](const AppConfiguration& config) {
                events_ << QStringLiteral("rebuild %1").arg(config.shortcuts.size());
            },
            [this](const AppConfiguration&) { events_ << QStringLiteral("settings"); });
        const auto note = [this](const char* signal) {
            return [this, signal] { events_ << QString::fromLatin1(signal); };
        };
        QObject::connect(model_.get(), &ShortcutListViewModel::shortcutsChanged, note("list"));
        QObject::connect(model_.get(), &ShortcutListViewModel::themeChanged, note("theme"));
        QObject::connect(model_.get(), &ShortcutListViewModel::menuBarIconNameChanged,
                         note("icon"));
        return *model_;
    }

    [[nodiscard]] QStringList rows() const { return rows(model_->shortcuts()); }
    static QStringList rows(const std::vector<ShortcutItem>& items) {
        QStringList rows;
        for (const ShortcutItem& item : items)
            rows << QStringLiteral("%1 %2").arg(item.name).arg(item.sortOrder);
        return rows;
    }
    // The list as the next start will find it.
    [[nodiscard]] QStringList rowsOnDisk() const {
        return rows(decodeConfiguration(*files_.content(configPath))->shortcuts);
    }
    static QString s(const char* text) { return QString::fromUtf8(text); }
};

TEST_F(ShortcutList, opensInOrderWithTiesAsInTheFile) {
    open({item(s("c"), 5), item(s("a"), -1), item(s("x"), 2), item(s("y"), 2)});
    EXPECT_EQ(rows(), (QStringList{s("a -1"), s("x 2"), s("y 2"), s("c 5")}));
    EXPECT_THAT(events_, ElementsAre(s("settings"), s("rebuild 4")));
}

TEST_F(ShortcutList, newRecordsComeLast) {
    open({item(s("a"), 0), item(s("b"), 1), item(s("c"), 5)});
    events_.clear();
    const ShortcutItem added = model_->addShortcut(s("/Applications/Notes.app/"));
    EXPECT_EQ(added.sortOrder, 6);
    EXPECT_EQ(added.targetPath, s("/Applications/Notes.app"));
    EXPECT_EQ(added.createdAt, QDateTime(QDate(2026, 7, 24), QTime(9, 30, 15), Qt::UTC));
    EXPECT_EQ(added.bookmarkData, QByteArray("bookmark of /Applications/Notes.app"));
    EXPECT_EQ(rowsOnDisk(), (QStringList{s("a 0"), s("b 1"), s("c 5"), s("Notes* 6")}));
    EXPECT_THAT(events_, ElementsAre(s("rebuild 4"), s("list")));
    EXPECT_TRUE(model_->item(added.id) == added);

    const qsizetype before = files_.operations().filter(s("rename")).size();
    const auto bound = model_->addShortcut(s("/locked"), KeyCombo{38, {6}}, KeyCombo{38, {14}});
    EXPECT_EQ(files_.operations().filter(s("rename")).size(), before + 1) << "one commit";
    EXPECT_FALSE(bound.bookmarkData);
    EXPECT_TRUE(model_->remove(bound.id));
    EXPECT_FALSE(model_->remove(bound.id));
    EXPECT_EQ(rowsOnDisk().last(), s("Notes* 6"));
}

TEST_F(ShortcutList, namesAndTypes) {
    ASSERT_TRUE(files_.createFolder(s("/home/me/My.Projects")));
    open({});
    const struct {
        const char* path;
        const char* name;
        ShortcutItem::TargetType type;
    } rows[] = {
        {"/Applications/Notes.app", "Notes*", ShortcutItem::TargetType::application},
        {"/Applications/nameless.app", "nameless", ShortcutItem::TargetType::application},
        {"/home/me/My.Projects", "My", ShortcutItem::TargetType::folder},
        {"/home/me/My.Projects/", "My", ShortcutItem::TargetType::folder},
        {"/", "/", ShortcutItem::TargetType::folder},
        {"/home/me/a.tar.gz", "a.tar", ShortcutItem::TargetType::file},
        {"/home/me/.profile", ".profile", ShortcutItem::TargetType::file},
        {"/home/me/Dr. Smith", "Dr. Smith", ShortcutItem::TargetType::file},
        {"/home/me/end.", "end.", ShortcutItem::TargetType::file},
        {"/home/me/gone", "gone", ShortcutItem::TargetType::file},
    };
    std::int64_t order = 0;
    for (const auto& row : rows) {
        const ShortcutItem added = model_->addShortcut(s(row.path));
        EXPECT_EQ(added.name, s(row.name)) << row.path;
        EXPECT_EQ(added.targetType, row.type) << row.path;
        EXPECT_EQ(added.sortOrder, order++);
    }
}

TEST_F(ShortcutList, numbersAnewWhereNoOrderIsLeft) {
    open({item(s("a"), 7), item(s("b"), std::numeric_limits<std::int64_t>::max())});
    (void)model_->addShortcut(s("/c"));
    EXPECT_EQ(rowsOnDisk(), (QStringList{s("a 0"), s("b 1"), s("c 2")}));
}

TEST_F(ShortcutList, movesKeepTheNumbersAscending) {
    const struct {
        const char* moved;
        qsizetype row;
        QStringList result;
    } rows[] = {
        {"/a", 2, {s("b 1"), s("c 1"), s("a 4"), s("d 9")}},
        {"/d", 0, {s("d 1"), s("a 1"), s("b 4"), s("c 9")}},
        {"/b", 99, {s("a 1"), s("c 1"), s("d 4"), s("b 9")}},
        {"/c", -3, {s("c 1"), s("a 1"), s("b 4"), s("d 9")}},
        {"/c", 2, {s("a 1"), s("b 1"), s("c 4"), s("d 9")}},
    };
    for (const auto& row : rows) {
        StorageService storage(files_, lines_, clock_, defaults_, test::appInfo());
        AppConfiguration document;
        document.shortcuts = {item(s("a"), 1), item(s("b"), 1), item(s("c"), 4), item(s("d"), 9)};
        storage.save(document);
        ShortcutListViewModel model(storage, workspace_, bookmarks_, files_, clock_, defaults_,
                                    test::appInfo(), {}, {});
        ASSERT_TRUE(model.move(model.find(s(row.moved))->id, row.row));
        EXPECT_EQ(this->rows(model.shortcuts()), row.result) << row.moved;
        EXPECT_EQ(rowsOnDisk(), row.result) << row.moved;
    }
}

TEST_F(ShortcutList, updatesKeepTheirPlace) {
    open({item(s("a"), 1), item(s("b"), 2)});
    ShortcutItem changed = model_->shortcuts()[0];
    changed.name = s("z");
    changed.sortOrder = 50;
    EXPECT_TRUE(model_->update(changed));
    EXPECT_EQ(rowsOnDisk(), (QStringList{s("z 1"), s("b 2")}));
    EXPECT_FALSE(model_->update(item(s("stranger"), 1)));
}

TEST_F(ShortcutList, whileSuspendedOnlyTheFileChanges) {
    open({});
    events_.clear();
    model_->setHotkeysSuspended(true);
    (void)model_->addShortcut(s("/a"));
    model_->changeSettings([](AppConfiguration& config) { config.windowCycling = true; });
    EXPECT_EQ(rowsOnDisk(), QStringList{s("a 0")});
    EXPECT_THAT(events_, ElementsAre(s("list"), s("settings")));
    model_->setHotkeysSuspended(false);
    model_->setHotkeysSuspended(false);
    EXPECT_THAT(events_, ElementsAre(s("list"), s("settings"), s("rebuild 1")));
}

TEST_F(ShortcutList, settingsRebuildOnlyTheHotkeysThatDependOnThem) {
    open({item(s("a"), 0)});
    events_.clear();
    model_->changeSettings([](AppConfiguration& config) {
        config.themeRaw = QStringLiteral("dark");
        config.shortcuts.clear();
    });
    EXPECT_THAT(events_, ElementsAre(s("settings"), s("theme")));
    EXPECT_EQ(rowsOnDisk(), QStringList{s("a 0")}) << "a setting took the list away";
    events_.clear();
    model_->changeSettings([](AppConfiguration& config) {
        config.voiceCombo = KeyCombo{9, {1}};
        config.menuBarIconName = QStringLiteral("star");
    });
    EXPECT_THAT(events_, ElementsAre(s("rebuild 1"), s("settings"), s("icon")));
}

TEST_F(ShortcutList, oneHeardTextHasOneMeaning) {
    open({});
    const auto aliases = [this] {
        QStringList texts;
        const auto document = *decodeConfiguration(*files_.content(configPath));
        for (const VocabAlias& alias :
             document.vocabularyAliases.value_or(std::vector<VocabAlias>()))
            texts << alias.heard + u'>' + alias.canonical;
        return texts;
    };
    model_->addAlias(s("cloud"), s("Cloud App"));
    model_->addAlias(s("straße"), s("Street"));
    model_->addAlias(s(" Cloud\n"), s("\tClaude "));
    model_->addAlias(s("  "), s("nothing"));
    model_->addAlias(s("nothing"), s("\n"));
    EXPECT_EQ(aliases(), (QStringList{s("straße>Street"), s("Cloud>Claude")}));
    model_->removeAlias(s("STRASSE"));
    model_->removeAlias(s("STRAßE"));
    EXPECT_EQ(aliases(), QStringList{s("Cloud>Claude")});
}

TEST_F(ShortcutList, aTermStandsOnce) {
    open({});
    const auto terms = [this] {
        return decodeConfiguration(*files_.content(configPath))->vocabularyTerms;
    };
    model_->addTerm(s(" Skipnest\n"));
    model_->addTerm(s("Größe"));
    model_->addTerm(s("SkipNest"));
    model_->addTerm(s(" \t"));
    EXPECT_EQ(terms(), (QStringList{s("SkipNest"), s("Größe")}));
    model_->removeTerm(s("grösse"));
    model_->removeTerm(s(" GRÖßE"));
    EXPECT_EQ(terms(), QStringList{s("SkipNest")});
}

TEST_F(ShortcutList, findsByPathAndByName) {
    open({item(s("Notes"), 0), item(s("notes"), 1), item(s("Notebook"), 2), item(s("ÄRGER"), 3)});
    EXPECT_TRUE(model_->find(s("/Notes/")));
    EXPECT_TRUE(model_->find(s("//x/../Notes/.")));
    EXPECT_EQ(model_->find(s("/notes"))->name, s("notes"));
    EXPECT_FALSE(model_->find(s("/NOTES")));
    const struct {
        const char* name;
        QStringList found;
    } rows[] = {
        {"Notes", {s("Notes 0")}},
        {"notes", {s("notes 1")}},
        {"NOTES", {s("Notes 0"), s("notes 1")}},
        {"note", {s("Notes 0"), s("notes 1"), s("Notebook 2")}},
        {"noteb", {s("Notebook 2")}},
        {"ärg", {s("ÄRGER 3")}},
        {"book", {}},
        {"", {}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(this->rows(model_->findByName(s(row.name))), row.found) << row.name;
}

TEST_F(ShortcutList, takesOverARestoredDocument) {
    open({item(s("a"), 0)});
    storage_.takeDailySnapshot();
    (void)model_->remove(model_->shortcuts()[0].id);
    events_.clear();
    ASSERT_TRUE(storage_.restore(std::nullopt));
    model_->reload();
    EXPECT_EQ(rows(), QStringList{s("a 0")});
    EXPECT_THAT(events_, ElementsAre(s("rebuild 1"), s("settings"), s("list")));
}

} // namespace
} // namespace skipnest::model
