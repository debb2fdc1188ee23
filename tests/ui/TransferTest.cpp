// SPDX-License-Identifier: Apache-2.0
#include "tests/ui/UiStage.h"

#include "model/ConfigurationCoding.h"
#include "ui/PopoverModel.h"
#include "ui/transfer/ExportModel.h"
#include "ui/transfer/ImportModel.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QQuickItem>

#include <gmock/gmock.h>

namespace skipnest::ui {
namespace {

using namespace Qt::StringLiterals;
using model::AppConfiguration;
using model::KeyCombo;
using model::ModifierFlags;
using platform::PopoverScreen;

const QString unreadable = u"That file couldn't be read as a Skipnest export - pick another one."_s;
const QString exportPath = u"/Users/person/Downloads/Skipnest-Export-2026-07-24.json"_s;

class TransferTest : public testing::Test {
protected:
    void SetUp() override {
        stage_.desk().installApp({.name = u"Notes"_s, .path = u"/Applications/Notes.app"_s});
        (void)stage_.desk().addFile(u"/Users/person/plan.txt"_s, "x");
        stage_.launch();
    }
    // An export with these targets on the keys Control with A, S, D, …
    static QByteArray document(const QStringList& targets) {
        AppConfiguration config;
        std::uint16_t key = 0;
        for (const QString& target : targets) {
            model::ShortcutItem item;
            item.name = target.mid(target.lastIndexOf(u'/') + 1);
            item.targetPath = target;
            item.keyCombo = KeyCombo{key++, ModifierFlags::control};
            item.createdAt = QDateTime::fromSecsSinceEpoch(1'700'000'000, Qt::UTC);
            config.shortcuts.push_back(std::move(item));
        }
        return model::encodeConfiguration(config);
    }
    void put(const QString& path, const QByteArray& bytes) {
        stage_.desk().files().put(path, bytes);
    }
    std::optional<QByteArray> configuration() {
        return stage_.desk().files().content(stage_.desk().appInfo().supportFolder +
                                             u"/config.json"_s);
    }
    void pressButton(const QString& objectName) {
        stage_.item(objectName).forceActiveFocus(Qt::TabFocusReason);
        stage_.press(Qt::Key_Space);
    }
    QString shownText(const QString& objectName) {
        return stage_.hasItem(objectName) ? stage_.item(objectName).property("text").toString()
                                          : QString();
    }
    ImportModel& importer() { return *stage_.panels().popoverModel().importer(); }

    test::UiStage stage_;
};

TEST_F(TransferTest, aCandidateIsLookedIntoAndThenImported) {
    put(exportPath, document({u"/Users/person/plan.txt"_s, u"/Volumes/Stick/Tool.app"_s}));
    stage_.show({PopoverScreen::importing, {}});
    EXPECT_FALSE(stage_.hasItem(u"noCandidates"_s));
    EXPECT_TRUE(
        stage_.item(u"candidate0"_s).property("detail").toString().endsWith(u" · ~/Downloads"_s));

    pressButton(u"candidate0"_s);
    EXPECT_EQ(shownText(u"importPreview"_s),
              u"Skipnest-Export-2026-07-24.json: 2 new, 1 application to confirm");
    EXPECT_TRUE(stage_.list().shortcuts().empty());

    // What was shown is what comes, even from a file that changed since.
    put(exportPath, document({}));
    pressButton(u"importButton"_s);
    EXPECT_TRUE(shownText(u"importMessage"_s).startsWith(u"Imported 2 shortcuts: 2 new"))
        << qPrintable(shownText(u"importMessage"_s));
    EXPECT_FALSE(stage_.hasItem(u"importButton"_s));
    ASSERT_EQ(stage_.list().shortcuts().size(), 2U);
    // Of the two only the file has its key: nobody said yet that the program may run.
    const auto bound = stage_.desk().hotkeys().registered();
    EXPECT_EQ(std::ranges::count(bound, 0, &platform::HotkeyRequest::keyCode), 2); // and its hide
    EXPECT_EQ(std::ranges::count(bound, 1, &platform::HotkeyRequest::keyCode), 0);
}

TEST_F(TransferTest, withoutCandidatesTheScreenSaysHowToGoOn) {
    stage_.show({PopoverScreen::importing, {}});
    EXPECT_EQ(shownText(u"noCandidates"_s),
              u"No export files found yet - export one first, or type a file name.");
}

struct Unusable {
    const char* what;
    QByteArray content;
    QString message;
};
class UnusableFile : public TransferTest, public testing::WithParamInterface<Unusable> {};

TEST_P(UnusableFile, changesNothingAndIsSaid) {
    stage_.list().addShortcut(u"/Applications/Notes.app"_s, KeyCombo{1, ModifierFlags::control},
                              std::nullopt);
    put(u"/Users/person/Downloads/broken.json"_s, GetParam().content);
    stage_.show({PopoverScreen::importing, {}});
    const auto before = configuration();
    const auto bound = stage_.desk().hotkeys().registered().size();

    stage_.type(u"broken.json"_s); // the field has the keyboard
    stage_.press(Qt::Key_Return);
    EXPECT_EQ(shownText(u"importMessage"_s), GetParam().message);
    EXPECT_FALSE(stage_.hasItem(u"importButton"_s));
    importer().importChosen();
    EXPECT_EQ(configuration(), before);
    EXPECT_EQ(stage_.desk().hotkeys().registered().size(), bound);
}

INSTANTIATE_TEST_SUITE_P(
    , UnusableFile,
    testing::Values(Unusable{"no JSON", "\xff\xfe{", unreadable}, Unusable{"empty", "", unreadable},
                    Unusable{"another program's", R"({"shortcuts": [{"name": "x"}]})", unreadable},
                    Unusable{
                        "above the limit",
                        QByteArray(static_cast<qsizetype>(model::largestConfiguration) + 1, ' '),
                        u"That file is larger than 16 MB, and no Skipnest export is."_s},
                    Unusable{"no shortcut", model::encodeConfiguration({}),
                             u"There is no shortcut in that file."_s}),
    [](const auto& row) { return std::to_string(row.index); });

TEST_F(TransferTest, aFileIsFoundByWhatPeopleTypeOrDrop) {
    const QString path = u"/Users/person/Desktop/my keys.json"_s;
    put(path, document({u"/Users/person/plan.txt"_s}));
    stage_.show({PopoverScreen::importing, {}});
    for (const auto& typed : {u"my keys.json"_s, u" my keys "_s, u"~/Desktop/my keys.json"_s, path,
                              u"/Users/person/Downloads/../Desktop/my keys.json"_s,
                              u"file:///Users/person/Desktop/my%20keys.json"_s}) {
        importer().choose(u"/nowhere"_s);
        EXPECT_EQ(importer().message(), unreadable);
        importer().choose(typed);
        EXPECT_EQ(importer().chosenPath(), path) << qPrintable(typed);
        EXPECT_TRUE(importer().canImport());
    }
    stage_.panels().popoverModel().addDropped({u"file:///Users/person/plan.txt"_s});
    EXPECT_EQ(importer().message(), unreadable);
    // The folder is no file, and an address of another kind is no name.
    for (const auto& other : {u"~/Desktop"_s, u"https://example.org/my%20keys.json"_s, u"your"_s}) {
        importer().choose(other);
        EXPECT_FALSE(importer().canImport());
        EXPECT_NE(importer().message(), QString()) << qPrintable(other);
    }
}

TEST_F(TransferTest, anExportIsWrittenWhereItSays) {
    stage_.list().addShortcut(u"/Applications/Notes.app"_s);
    stage_.show({PopoverScreen::exporting, {}});
    const QString name = stage_.agent().transfer().suggestedName();
    EXPECT_EQ(shownText(u"exportName"_s), name);
    EXPECT_EQ(stage_.item(u"destination2"_s).property("name").toString(), u"Documents");
    EXPECT_FALSE(stage_.hasItem(u"copyPath"_s));

    stage_.press(Qt::Key_Tab); // from the first folder to the second
    stage_.press(Qt::Key_Return);
    const QString path = u"/Users/person/Desktop/"_s + name;
    EXPECT_EQ(stage_.desk().files().content(path), stage_.agent().transfer().exported());
    EXPECT_EQ(shownText(u"exportMessage"_s), u"Exported to ~/Desktop/"_s + name);
    EXPECT_TRUE(stage_.item(u"destination1"_s)
                    .property("detail")
                    .toString()
                    .contains(u"replaces today's export"_s));
    pressButton(u"copyPath"_s);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), path);

    // What the import screen offers next is that file, with nothing new in it.
    stage_.show({PopoverScreen::importing, {}});
    pressButton(u"candidate0"_s);
    EXPECT_EQ(shownText(u"importMessage"_s), u"Nothing new: all of that file is here already.");
}

TEST_F(TransferTest, anExportThatCannotBeWrittenSaysWhy) {
    stage_.show({PopoverScreen::exporting, {}});
    stage_.desk().files().failAfter(1); // the folder is made, the file is not written
    pressButton(u"destination0"_s);
    EXPECT_TRUE(shownText(u"exportMessage"_s).startsWith(u"The export couldn't be written: "));
    EXPECT_TRUE(shownText(u"exportMessage"_s).contains(u"no space left"_s));
    EXPECT_FALSE(stage_.hasItem(u"copyPath"_s));
}

} // namespace
} // namespace skipnest::ui
