// SPDX-License-Identifier: Apache-2.0
// Draws the screens into PNG files: skipnest_screens FOLDER [THEME [SCREEN]]. Scale by
// QT_SCALE_FACTOR, language by LANGUAGE, as for any Qt program.
#include "tests/ui/UiStage.h"

#include "app/MenuBarShell.h"
#include "model/KeyCombo.h"

#include <QCommandLineParser>
#include <QDir>
#include <QGuiApplication>
#include <QQuickView>
#include <QQuickWindow>

#include <cstdio>

namespace {

using namespace skipnest;
using namespace Qt::StringLiterals;
using model::KeyCombo;
using model::ModifierFlags;

// A list as a person might have it, with what is hard to draw: umlauts, a long name, an emoji, a
// name from right to left.
void furnish(test::UiStage& stage) {
    auto& desk = stage.desk();
    for (const QString& name :
         {u"Notes"_s, u"Firefox"_s, u"Terminal"_s, u"Mail"_s, u"Kalender"_s, u"Musik"_s})
        desk.installApp({.name = name, .path = u"/Applications/%1.app"_s.arg(name)});
    (void)desk.addFolder(u"/Users/person/Documents/Verträge und Geburtstagsüberraschungen 2026"_s);
    (void)desk.addFile(u"/Users/person/Documents/Steuererklärung.pdf"_s, "x");
    (void)desk.addFile(u"/Users/person/Documents/🎉 Party.txt"_s, "x");
    (void)desk.addFile(u"/Users/person/Documents/תוכנית.txt"_s, "x");
}

void fill(test::UiStage& stage) {
    constexpr ModifierFlags alt = ModifierFlags::control | ModifierFlags::option;
    const auto add = [&stage, alt](const QString& path, std::optional<std::uint16_t> key) {
        stage.list().addShortcut(path, key ? std::optional(KeyCombo{*key, alt}) : std::nullopt,
                                 std::nullopt);
    };
    add(u"/Applications/Notes.app"_s, 45);
    add(u"/Applications/Firefox.app"_s, 3);
    add(u"/Applications/Terminal.app"_s, 17);
    add(u"/Applications/Mail.app"_s, 46);
    add(u"/Users/person/Documents/Verträge und Geburtstagsüberraschungen 2026"_s, 9);
    add(u"/Users/person/Documents/Steuererklärung.pdf"_s, 1);
    add(u"/Users/person/Documents/🎉 Party.txt"_s, std::nullopt);
    add(u"/Users/person/Documents/תוכנית.txt"_s, 46);
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 2) {
        std::fputs("usage: skipnest_screens FOLDER [THEME [SCREEN]]\n", stderr);
        return 2;
    }
    const QDir folder(arguments.at(1));
    (void)folder.mkpath(u"."_s);
    for (const auto theme : {model::Theme::light, model::Theme::dark, model::Theme::brand}) {
        if (arguments.size() > 2 && arguments.at(2) != model::themeName(theme))
            continue;
        test::UiStage stage;
        furnish(stage);
        stage.launch();
        fill(stage);
        stage.list().changeSettings(
            [theme](auto& settings) { settings.themeRaw = model::themeName(theme); });
        using enum platform::PopoverScreen;
        for (const auto screen : {list, add, importing, exporting, settings, feedback}) {
            const QString name = platform::screenName(screen);
            if (arguments.size() > 3 && arguments.at(3) != name)
                continue;
            stage.show({screen, {}});
            const QString file = folder.filePath(u"%1-%2.png"_s.arg(name, model::themeName(theme)));
            stage.picture(stage.popover()).save(file);
            std::printf("%s\n", qUtf8Printable(file));
        }
    }
    return 0;
}
