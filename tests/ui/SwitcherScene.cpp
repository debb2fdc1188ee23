// SPDX-License-Identifier: Apache-2.0
#include "tests/ui/SwitcherScene.h"

#include "ui/switcher/SwitcherBarWindow.h"

#include <QCoreApplication>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QQuickView>

#include <array>

namespace skipnest::test {
namespace {

using namespace Qt::StringLiterals;

struct Page {
    QStringView title;
    QStringView domain;
};

constexpr auto pages = std::to_array<Page>({
    {u"git rebase --onto explained", u"notes.example"},
    {u"Inbox (3)", u"mail.example"},
    {u"Releases · window manager", u"github.example"},
    {u"Timetable: Vienna to Trieste by night train", u"rail.example"},
    {u"Bread with a long fermentation", u"kitchen.example"},
    {u"How X11 delivers key events while a legitimate grab is active", u"docs.example"},
    {u"Weather for the weekend", u"weather.example"},
    {u"Pull request #212: digits in names", u"github.example"},
    {u"מזג האוויר בתל אביב", u"weather.example"},
    {u"Concert hall, programme of the season", u"music.example"},
});

constexpr auto documents = std::to_array<QStringView>({
    u"Minutes of the general assembly.odt - Writer",
    u"Household budget 2026.ods - Writer",
    u"Letter to the landlord - Writer",
    u"Donaudampfschifffahrtsgesellschaftskapitänsmütze, Entwurf 7.odt - Writer",
    u"תוכנית לשנה הבאה.odt - Writer",
    u"Untitled 1 - Writer",
    u"🎉 Invitations\nand guests.odt - Writer",
});

const Page& page(int number) {
    return pages[static_cast<std::size_t>(number) % pages.size()];
}

QString letterOf(QStringView domain) {
    return QString(domain.front()).toUpper();
}

void drawText(QPainter& painter, const QRect& area, int number, const QColor& ink) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    for (int line = 0; area.top() + line * 14 < area.bottom(); ++line) {
        const int words = (number * 37 + line * 53) % 5;
        if (words == 0)
            continue;
        painter.drawRoundedRect(area.left(), area.top() + line * 14,
                                area.width() * (5 + words) / 10, 6, 3, 3);
    }
}

} // namespace

QImage windowPicture(int number) {
    constexpr std::array sizes = {QSize(670, 420), QSize(560, 420), QSize(720, 380),
                                  QSize(360, 420)};
    const QSize size = sizes[static_cast<std::size_t>(number) % sizes.size()];
    const bool isDark = number % 3 == 2;
    const auto hue = static_cast<double>(number * 47 % 360) / 360;
    QImage image(size, QImage::Format_RGB32);
    image.fill(isDark ? QColor(0x1e2227) : QColor(0xfbfbf9));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(0, 0, size.width(), 30, isDark ? QColor(0x2c3138) : QColor(0xdfe3e6));
    for (int button = 0; button < 3; ++button) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(isDark ? QColor(0x565e68) : QColor(0xb4bcc2));
        painter.drawEllipse(size.width() - 20 - button * 20, 9, 12, 12);
    }
    const QColor ink = isDark ? QColor(0x8fa3b0) : QColor(0xb9c2c8);
    if (number % 2 == 0) {
        QLinearGradient banner(0, 30, size.width(), 150);
        banner.setColorAt(0, QColor::fromHslF(static_cast<float>(hue), 0.5F, 0.55F));
        banner.setColorAt(1, QColor::fromHslF(static_cast<float>(hue), 0.6F, 0.3F));
        painter.fillRect(0, 30, size.width(), 120, banner);
        drawText(painter, {40, 180, size.width() - 80, size.height() - 200}, number, ink);
    } else {
        painter.fillRect(0, 30, 110, size.height() - 30,
                         isDark ? QColor(0x252a30) : QColor(0xeef1f2));
        drawText(painter, {16, 56, 80, size.height() - 90}, number + 1, ink);
        drawText(painter, {140, 56, size.width() - 180, size.height() - 90}, number, ink);
    }
    return image;
}

SwitcherScene::Content windowSession(int windows, const QString& icon) {
    SwitcherScene::Content content;
    content.isPinned = true;
    content.appName = u"Writer"_s;
    content.appIcon = icon;
    for (int i = 0; i < windows; ++i)
        content.windows.push_back(
            {.id = i,
             .title = documents[static_cast<std::size_t>(i) % documents.size()].toString(),
             .image = {},
             .fallbackIcon = icon,
             .tabCount = {},
             .isFocused = i == 0});
    content.selWin = windows > 1 ? 1 : 0;
    return content;
}

SwitcherScene::Content browserSession(int windows) {
    SwitcherScene::Content content = windowSession(windows, u"/Applications/Firefox.app"_s);
    content.appName = u"Firefox"_s;
    content.isBrowser = true;
    for (int i = 0; i < windows; ++i) {
        auto& window = content.windows[static_cast<std::size_t>(i)];
        window.title = page(i * 3).title.toString() + u" — Firefox"_s;
        window.tabCount = 1 + i * 5;
        content.totalTabs += *window.tabCount;
    }
    return content;
}

SwitcherScene::Content tabSession(int tabs) {
    SwitcherScene::Content content = browserSession(2);
    content.level = switcher::SwitcherModel::Level::tabs;
    content.selWin = 0;
    content.drillWinName = content.windows.front().title;
    content.totalTabs = tabs + 1;
    for (int i = 0; i < tabs; ++i)
        content.tabs.push_back({i, page(i).title.toString(), letterOf(page(i).domain)});
    content.selTab = tabs / 2;
    return content;
}

SwitcherScene::Content searchSession(const QString& query) {
    SwitcherScene::Content content = browserSession(3);
    content.level = switcher::SwitcherModel::Level::search;
    content.query = query;
    content.totalTabs = static_cast<int>(pages.size());
    for (const Page& each : pages) {
        if (!each.title.contains(query, Qt::CaseInsensitive) &&
            !each.domain.contains(query, Qt::CaseInsensitive))
            continue;
        const int id = static_cast<int>(content.results.size());
        content.results.push_back({id, each.title.toString(), each.domain.toString(),
                                   content.windows[static_cast<std::size_t>(id) % 3].title,
                                   letterOf(each.domain)});
    }
    return content;
}

SwitcherScene::SwitcherScene(UiStage& stage) : stage_(stage) {
    stage.panels().setSwitcher(model_);
    stage.panels().createSwitcherBar();
}

ui::SwitcherBarModel& SwitcherScene::bar() {
    return stage_.panels().switcherBar()->model();
}

QQuickView& SwitcherScene::view() {
    return *stage_.panels().switcherBar()->view();
}

void SwitcherScene::show(const Content& content) {
    model_.setContent(content);
    stage_.panels().showSwitcherBar(area);
    stage_.settle();
}

void SwitcherScene::set(const Content& content) {
    model_.setContent(content);
    stage_.settle();
}

void SwitcherScene::hide() {
    stage_.panels().hideSwitcherBar();
    stage_.desk().advance(std::chrono::milliseconds(10)); // it leaves the screen a moment later
    stage_.settle();
}

void SwitcherScene::movePointer(const QPointF& to) {
    QMouseEvent event(QEvent::MouseMove, to, view().mapToGlobal(to), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&view(), &event);
    stage_.settle();
}

} // namespace skipnest::test
