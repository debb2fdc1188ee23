// SPDX-License-Identifier: Apache-2.0
// What drawing the list costs after each step of scrolling through 500 shortcuts, by the software
// renderer into memory. Beside it, in turn, drawing the same list again without having scrolled.
#include "bench/Bench.h"
#include "tests/e2e/Waiting.h"
#include "tests/ui/UiStage.h"

#include "app/MenuBarShell.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickView>
#include <QQuickWindow>

#include <cstdio>

namespace skipnest::bench {
namespace {

constexpr int shortcuts = 500;

int measure(int steps) {
    test::UiStage stage;
    for (int index = 0; index < shortcuts; ++index)
        (void)stage.desk().addFile(
            QStringLiteral("/Users/person/Documents/Datei %1.txt").arg(index), "x");
    stage.launch();
    for (int index = 0; index < shortcuts; ++index)
        stage.list().addShortcut(QStringLiteral("/Users/person/Documents/Datei %1.txt").arg(index));
    stage.show({});
    QQuickItem& list = stage.item(QStringLiteral("shortcuts"));
    Series again{QStringLiteral("the same picture again"), {}, 0};
    Series scrolled{QStringLiteral("after a scroll step"), {}, 0};
    const double height = list.property("contentHeight").toDouble() - list.height();
    for (int step = 1; step <= steps; ++step) {
        auto started = e2e::Clock::now();
        (void)stage.popover().grabWindow();
        again.add(e2e::Clock::now() - started);

        list.setProperty("contentY", height * step / steps);
        started = e2e::Clock::now();
        (void)stage.popover().grabWindow();
        scrolled.add(e2e::Clock::now() - started);
        stage.settle();
    }
    printTable({again, scrolled});
    if (!wantsJson())
        std::printf("%d shortcuts, %d steps, load average %.2f\n", shortcuts, steps, loadAverage());
    printJson(toJson({again, scrolled}));
    return 0;
}

} // namespace
} // namespace skipnest::bench

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application(argc, argv);
    return skipnest::bench::measure(skipnest::bench::numberOption("steps", 200));
}
