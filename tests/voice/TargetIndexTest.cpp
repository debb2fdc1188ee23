// SPDX-License-Identifier: Apache-2.0
#include "voice/TargetIndex.h"

#include "platform/sim/SimDesktop.h"
#include "voice/FileLookup.h"
#include "voice/InstalledInFolders.h"

#include <gmock/gmock.h>

namespace skipnest::voice {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using model::ShortcutItem;
using platform::IndexedFile;
using sim::SimApp;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using Kind = JumpTarget::Kind;
using State = TargetList::State;

ShortcutItem shortcut(const char* name, const char* path, ShortcutItem::TargetType type) {
    ShortcutItem item;
    item.name = QString::fromUtf8(name);
    item.targetPath = QString::fromUtf8(path);
    item.targetType = type;
    return item;
}

class TargetIndexTest : public testing::Test {
protected:
    TargetIndexTest() {
        (void)desk.addFolder(folders().documents);
        (void)desk.addFolder(folders().music);
        desk.installApp({.name = u"Notes"_s,
                         .bundleIdentifier = u"com.example.notes"_s,
                         .path = u"/Applications/Notes.app"_s,
                         .windows = {{u"Groceries"_s}, {u"Budget"_s}}});
        desk.installApp({.name = u"Paint"_s,
                         .path = u"/Applications/Paint.app"_s,
                         .running = sim::Running::no});
        desk.bringToFront(u"Notes"_s);
    }
    void openBrowser(const sim::SimTabs& tabs, const char* name = "Chrome",
                     const char* bundle = "com.google.Chrome") {
        desk.installApp({.name = QString::fromUtf8(name),
                         .bundleIdentifier = QString::fromUtf8(bundle),
                         .path = u"/Applications/%1.app"_s.arg(QString::fromUtf8(name)),
                         .windows = {{u"Inbox"_s}, {u"Private"_s}}});
        desk.scripts().setTabs(QString::fromUtf8(bundle), tabs);
    }
    static sim::SimTabs twoTabs() {
        return {.listing = platform::ScriptText{
                    u"1\u00011\u0001Inbox\u00011\u0001https://mail.example/\n"
                    "1\u00012\u0001News\u00010\u0001https://news.example/x\n"_s}};
    }
    platform::HomeFolders folders() const {
        const QString& home = desk.appInfo().home;
        return {.home = home,
                .downloads = home + u"/Downloads"_s,
                .documents = home + u"/Dokumente"_s,
                .desktop = home + u"/Desktop"_s,
                .pictures = {},
                .movies = home + u"/gone"_s,
                .music = home + u"/music"_s};
    }
    const TargetList& build(std::vector<ShortcutItem> shortcuts = {}) {
        lists.clear();
        index.build(std::move(shortcuts), [this](auto list) { lists.push_back(std::move(list)); });
        EXPECT_THAT(lists, IsEmpty());
        desk.runPosted();
        return *lists.back();
    }
    // "kind title (subtitle) owner", with * for hot and ! for current.
    static std::vector<std::string> lines(const TargetList& list) {
        static constexpr const char* kinds[] = {"app", "file", "folder", "tab", "window"};
        std::vector<std::string> lines;
        for (const JumpTarget& target : list.targets)
            lines.push_back(QStringLiteral("%1%2%3 %4 (%5) %6")
                                .arg(target.hot ? u"*"_s : u""_s, target.current ? u"!"_s : u""_s,
                                     QString::fromLatin1(kinds[static_cast<int>(target.kind)]),
                                     target.title, target.subtitle, target.owner)
                                .trimmed()
                                .toStdString());
        return lines;
    }
    static const JumpTarget& named(const TargetList& list, const QString& title) {
        const auto found = std::ranges::find(list.targets, title, &JumpTarget::title);
        return found == list.targets.end() ? list.targets.front() : *found;
    }

    sim::SimDesktop desk;
    InstalledInFolders installed{desk.ports()};
    switcher::BrowserTabs tabs{desk.ports()};
    TargetIndex index{desk.ports(), tabs, installed, folders()};
    std::vector<std::shared_ptr<const TargetList>> lists;
};

TEST_F(TargetIndexTest, hasEveryPlaceOnceFromAllSourcesInTheirOrder) {
    openBrowser(twoTabs());
    const std::vector<ShortcutItem> shortcuts{
        shortcut("My Notes", "/Applications/Notes.app/", ShortcutItem::TargetType::application),
        shortcut("Plan", "/Users/person/Desktop/plan.pdf", ShortcutItem::TargetType::file),
        shortcut("Loads", "/Users/person/Downloads", ShortcutItem::TargetType::folder),
    };
    EXPECT_THAT(lines(build(shortcuts)),
                ElementsAre("*app My Notes (Notes)", "*file Plan (~/Desktop)",
                            "*folder Loads (Folder · Downloads)", "app Chrome ()",
                            "folder Dokumente (Folder)", "folder Documents (Folder)",
                            "folder Desktop (Folder)", "folder music (Folder)",
                            "folder Home (Folder)", "app Paint ()", "app Skipnest ()",
                            "tab Inbox (mail.example) Chrome", "tab News (news.example) Chrome",
                            "!window Groceries (Notes) Notes", "window Budget (Notes) Notes",
                            "window Private (Chrome) Chrome"));
    ASSERT_EQ(lists.size(), 2);
    EXPECT_EQ(lists[0]->state, State::withoutTabs);
    EXPECT_THAT(lines(*lists[0]), Contains("window Inbox (Chrome) Chrome"));
    EXPECT_EQ(lists[1]->state, State::complete);

    desk.bringToFront(u"Chrome"_s);
    const TargetList& list = build();
    EXPECT_THAT(lines(list), Contains("!tab Inbox (mail.example) Chrome"));
    const auto ranked = list.rank(u"documents"_s, {});
    ASSERT_EQ(ranked.size(), 1) << "one folder, two names, one offer";
    EXPECT_EQ(list.targets[ranked[0].target].title, u"Documents"_s);
    EXPECT_EQ(list.rank(u"notes"_s, {}, 1).size(), 1);
}

TEST_F(TargetIndexTest, targetsLeadToWhatTheyName) {
    openBrowser(twoTabs());
    const TargetList& list =
        build({shortcut("Plan", "/Users/person/plan.pdf", ShortcutItem::TargetType::file)});
    const auto committing = [&](const QString& title) {
        const auto before = desk.journal().calls().size();
        named(list, title).commit();
        desk.advance(1s);
        const auto calls = desk.journal().calls();
        return calls.size() > before ? calls[before] : std::string("nothing");
    };
    EXPECT_EQ(committing(u"Plan"_s), "openURL url=file:///Users/person/plan.pdf");
    EXPECT_EQ(committing(u"Paint"_s), "openApplication path=/Applications/Paint.app");
    EXPECT_EQ(committing(u"Home"_s), "openURL url=file:///Users/person");
    EXPECT_THAT(committing(u"News"_s),
                testing::HasSubstr("set tURL to \\\"https://news.example/x"));
    committing(u"Budget"_s);
    EXPECT_EQ(desk.applications().find(u"Notes"_s)->focused, 1U);

    int jumped = 0;
    index.setShortcutJump([&jumped](const ShortcutItem&) { ++jumped; });
    EXPECT_EQ(committing(u"Plan"_s), "nothing");
    EXPECT_EQ(jumped, 1);
}

TEST_F(TargetIndexTest, windowListsAreReusedForAMinute) {
    build();
    SimApp notes = *desk.applications().find(u"Notes"_s);
    notes.windows = {{u"Fresh"_s}};
    desk.installApp(notes);
    desk.advance(60s - 1ns);
    EXPECT_THAT(lines(build()), Not(Contains("!window Fresh (Notes) Notes")));
    EXPECT_THAT(desk.journal().logLines(), Contains("voiceindex: Notes 2 cached"));
    desk.advance(1ns);
    EXPECT_THAT(lines(build()), Contains("!window Fresh (Notes) Notes"));
    EXPECT_THAT(desk.journal().logLines(), Contains("voiceindex: Notes 1"));
    // A later run of the application starts with what it has then.
    desk.quitApp(u"Notes"_s);
    notes.windows = {{u"Again"_s}};
    desk.installApp(notes);
    EXPECT_THAT(lines(build()), Contains("window Again (Notes) Notes"));
}

TEST_F(TargetIndexTest, aHungBrowserDelaysNothingElseAndIsLeftAloneForAMinute) {
    openBrowser({.listing = platform::ScriptBudgetExceeded{}});
    openBrowser(twoTabs(), "Brave", "com.brave.Browser");
    const auto asked = desk.now();
    lists.clear();
    platform::Instant first;
    index.build({}, [&](auto list) {
        if (lists.empty())
            first = desk.now();
        lists.push_back(std::move(list));
    });
    desk.runPosted();
    EXPECT_EQ(first, asked);
    EXPECT_THAT(lines(*lists[0]), Contains("app Paint ()"));
    ASSERT_EQ(lists.size(), 2);
    EXPECT_GE(desk.now() - asked, 1s);
    const auto again = desk.now();
    desk.advance(10s);
    EXPECT_THAT(lines(build()), Contains("tab News (news.example) Brave"));
    EXPECT_LT(desk.now() - again, 11s);
}

TEST_F(TargetIndexTest, aReplacedBuildIsNotToldOf) {
    int told = 0;
    index.build({}, [&told](const auto&) { ++told; });
    build();
    EXPECT_EQ(told, 0);
    index.build({}, [&told](const auto&) { ++told; });
    index.cancel();
    desk.runPosted();
    EXPECT_EQ(told, 0);
    {
        TargetIndex passing(desk.ports(), tabs, installed, folders());
        passing.build({}, [&told](const auto&) { ++told; });
    }
    desk.runPosted();
    EXPECT_EQ(told, 0);
}

class FileLookupTest : public testing::Test {
protected:
    std::vector<std::string> found(const QString& phrase) {
        std::vector<std::string> lines{"not told"};
        lookup.find(phrase, [&lines](const std::vector<JumpTarget>& targets) {
            lines.clear();
            for (const JumpTarget& target : targets)
                lines.push_back((target.title + u" in "_s + target.subtitle).toStdString());
        });
        desk.advance(20ms);
        return lines;
    }

    sim::SimDesktop desk;
    FileLookup lookup{desk.ports()};
};

TEST_F(FileLookupTest, findsFilesByThePhraseAndByItsWordsWithinItsTime) {
    desk.fileIndex().add(
        {u"/Users/person/Documents/Tax 2024.pdf"_s, u"Tax 2024.pdf"_s, IndexedFile::Kind::file});
    desk.fileIndex().add({u"/Users/person/2024"_s, u"2024"_s, IndexedFile::Kind::folder});
    desk.fileIndex().add({u"/data/Budget.ods"_s, u"Budget.ods"_s, IndexedFile::Kind::file});
    desk.fileIndex().add(
        {u"/Applications/Budget.app"_s, u"Budget.app"_s, IndexedFile::Kind::application});
    EXPECT_THAT(found(u" tax   2024 "_s), ElementsAre("Tax 2024.pdf in ~/Documents", "2024 in ~"));
    EXPECT_THAT(found(u"my budget"_s), ElementsAre("Budget.ods in /data"));
    EXPECT_THAT(found(u"my"_s), IsEmpty());
    EXPECT_THAT(found(u""_s), IsEmpty());
    desk.fileIndex().setDelay(20ms + 1ns);
    EXPECT_THAT(found(u"budget"_s), IsEmpty());
    desk.advance(1s);
    EXPECT_EQ(desk.fileIndex().running(), 0);
    EXPECT_THAT(found(u"word "_s.repeated(100'000)), IsEmpty());
}

} // namespace
} // namespace skipnest::voice
