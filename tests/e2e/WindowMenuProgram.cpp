// SPDX-License-Identifier: Apache-2.0
// A program whose Window menu knows one window more than the window manager does: "Letter" and
// "Drawing" are on the desktop, "Notes" stays away until it is chosen in the menu. With an argument
// the menu bar is that of a program without a Window menu.
#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>

#include <array>
#include <memory>
#include <vector>

namespace {

void bringForward(QWidget& window) {
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("FixtureMenu"));
    constexpr std::array titles{"Letter", "Drawing", "Notes"};
    std::vector<std::unique_ptr<QMainWindow>> windows;
    for (const char* title : titles) {
        windows.push_back(std::make_unique<QMainWindow>());
        windows.back()->setWindowTitle(QLatin1String(title));
        windows.back()->resize(300, 200);
    }
    for (const auto& window : windows) {
        QMenuBar* bar = window->menuBar();
        bar->addMenu(QStringLiteral("&File"))->addAction(QStringLiteral("Close"));
        QMenu* menu = bar->addMenu(argc > 1 ? QStringLiteral("&View") : QStringLiteral("&Window"));
        menu->addAction(QStringLiteral("Minimise"));
        menu->addAction(QStringLiteral("Always on top"))->setCheckable(true);
        menu->addSeparator();
        auto* group = new QActionGroup(menu);
        for (const auto& listed : windows) {
            QAction* action = menu->addAction(u'&' + listed->windowTitle());
            action->setCheckable(true);
            action->setChecked(listed == window);
            group->addAction(action);
            QObject::connect(action, &QAction::triggered, listed.get(),
                             [&listed] { bringForward(*listed); });
        }
        bar->addMenu(QStringLiteral("&Help"))->addAction(QStringLiteral("About"));
    }
    windows[1]->show();
    windows[0]->show();
    return QApplication::exec();
}
