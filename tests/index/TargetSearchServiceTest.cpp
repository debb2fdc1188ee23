// SPDX-License-Identifier: Apache-2.0
#include "ui/search/TargetSearchService.h"

#include "platform/sim/SimFileIndex.h"
#include "platform/sim/VirtualScheduler.h"

#include <gmock/gmock.h>

namespace skipnest::ui {
namespace {

using namespace std::chrono_literals;
using model::ShortcutItem;
using platform::IndexedFile;
using platform::Instant;
using testing::ElementsAre;
using testing::IsEmpty;
using Kind = IndexedFile::Kind;

class TargetSearchServiceTest : public testing::Test {
protected:
    void add(const char* path, const char* name, Kind kind) {
        index.add({QString::fromUtf8(path), QString::fromUtf8(name), kind});
    }
    void type(const char* text, SearchScope scope = SearchScope::everything) {
        service.search(QString::fromUtf8(text), scope);
    }
    void advance(platform::Duration time) { scheduler.advanceTo(scheduler.now() + time); }
    std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (const SearchResult& result : service.results())
            names.push_back(result.name.toStdString());
        return names;
    }
    std::vector<std::string> answer(const char* text, SearchScope scope = SearchScope::everything) {
        type(text, scope);
        advance(1s);
        return names();
    }

    sim::VirtualScheduler scheduler;
    sim::SimFileIndex index{scheduler};
    TargetSearchService service{index, scheduler};
};

TEST_F(TargetSearchServiceTest, FiveQuickLettersAreOneQueryAfterTheLast) {
    add("/h/notes.txt", "notes.txt", Kind::file);
    for (const char* text : {"n", "no", "not", "note", "notes"}) {
        type(text);
        EXPECT_TRUE(service.isSearching());
        advance(100ms);
    }
    EXPECT_THAT(index.searches(), IsEmpty());
    advance(79ms);
    EXPECT_THAT(index.searches(), IsEmpty());
    advance(1ms);
    EXPECT_THAT(index.searches(), ElementsAre(QStringLiteral("notes")));
    advance(0ms);
    EXPECT_THAT(names(), ElementsAre("notes.txt"));
    EXPECT_FALSE(service.isSearching());
}

TEST_F(TargetSearchServiceTest, AnEmptyFieldEmptiesTheListAtOnce) {
    add("/h/notes.txt", "notes.txt", Kind::file);
    ASSERT_THAT(answer("no"), ElementsAre("notes.txt"));
    index.setDelay(1s);
    type("note");
    advance(500ms); // asked, not answered
    int changes = 0;
    QObject::connect(&service, &TargetSearchService::resultsChanged, [&] { ++changes; });
    type("");
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_FALSE(service.isSearching());
    EXPECT_EQ(index.running(), 0);
    advance(5s);
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_EQ(changes, 1);
}

TEST_F(TargetSearchServiceTest, ALateAnswerToOlderTextNeverShows) {
    add("/h/alpha", "alpha", Kind::folder);
    add("/h/beta", "beta", Kind::folder);
    index.setDelay(300ms);
    type("alpha");
    advance(200ms);
    type("beta");
    advance(180ms);
    EXPECT_EQ(index.running(), 1);
    advance(120ms); // when the first answer would have come
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_TRUE(service.isSearching());
    advance(1s);
    EXPECT_THAT(names(), ElementsAre("beta"));
}

TEST_F(TargetSearchServiceTest, CancelAndTheEndOfTheServiceDropTheQuery) {
    index.setDelay(1s);
    type("a");
    advance(200ms);
    ASSERT_EQ(index.running(), 1);
    service.cancel();
    EXPECT_EQ(index.running(), 0);
    EXPECT_FALSE(service.isSearching());
    {
        TargetSearchService brief(index, scheduler);
        brief.search(QStringLiteral("b"), SearchScope::apps);
        advance(200ms);
        ASSERT_EQ(index.running(), 1);
    }
    EXPECT_EQ(index.running(), 0);
}

TEST_F(TargetSearchServiceTest, FortyMatchesAreTwentyFourWithTheBeginningsFirst) {
    for (int number = 10; number < 40; ++number)
        add(QStringLiteral("/h/a%1").arg(number).toUtf8().constData(),
            QStringLiteral("all notes %1").arg(number).toUtf8().constData(), Kind::file);
    for (int number = 10; number < 19; ++number)
        add(QStringLiteral("/h/n%1").arg(number).toUtf8().constData(),
            QStringLiteral("Notes %1").arg(number).toUtf8().constData(), Kind::folder);
    add("/Applications/Notes.app", "Notes.app", Kind::application);
    const auto found = answer("notes");
    ASSERT_EQ(found.size(), 24U);
    EXPECT_EQ(found[0], "Notes");
    EXPECT_EQ(found[1], "Notes 10");
    EXPECT_EQ(found[9], "Notes 18");
    EXPECT_EQ(found[10], "all notes 10");
}

TEST_F(TargetSearchServiceTest, BuriedApplicationsLeaveTheirPlaceToOthers) {
    for (int number = 10; number < 50; ++number)
        add(QStringLiteral("/Users/a/Library/x/tool%1.app").arg(number).toUtf8().constData(),
            QStringLiteral("tool%1").arg(number).toUtf8().constData(), Kind::application);
    add("/Applications/Library/tool.app", "tool.app", Kind::application);
    add("/Users/a/Library/tool.txt", "tool.txt", Kind::file);
    EXPECT_THAT(answer("tool"), ElementsAre("tool", "tool.txt"));
}

TEST_F(TargetSearchServiceTest, KindsAreWhatTheIndexSaysAndBundlesAreFiles) {
    add("/h/app one", "app one", Kind::folder);
    add("/h/app two.app", "app two.app", Kind::folder);
    add("/h/app three.txt", "app three.txt", Kind::file);
    add("/share/four.desktop", "app four", Kind::application);
    EXPECT_THAT(answer("app"), ElementsAre("app four", "app one", "app three.txt", "app two"));
    using Type = ShortcutItem::TargetType;
    std::vector<Type> kinds;
    for (const SearchResult& result : service.results())
        kinds.push_back(result.kind);
    EXPECT_THAT(kinds, ElementsAre(Type::application, Type::folder, Type::file, Type::file));
    EXPECT_EQ(service.results()[1].url, QUrl::fromLocalFile(QStringLiteral("/h/app one")));
    EXPECT_THAT(answer("app", SearchScope::apps), ElementsAre("app four"));
}

} // namespace
} // namespace skipnest::ui
