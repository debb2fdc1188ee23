// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/shell/MenuBarImages.h"

#include "platform/MenuBarIcons.h"

#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

#include <algorithm>

// Outside the namespace, as the macro demands.
static void loadShellIcons() {
    Q_INIT_RESOURCE(shellicons);
}

namespace skipnest::linuxdesktop {
namespace {

QPixmap drawn(QSvgRenderer& drawing, int size) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    drawing.render(&painter, QRectF(0, 0, size, size));
    return pixmap;
}

} // namespace

QIcon menuBarImage(const QString& name, const QColor& color) {
    loadShellIcons();
    const bool known =
        std::ranges::any_of(platform::menuBarIcons, [&](const platform::MenuBarIcon& icon) {
            return name == QLatin1String(icon.name);
        });
    QSvgRenderer drawing(QStringLiteral(":/skipnest/icons/menubar/%1.svg")
                             .arg(known ? name : QLatin1String(platform::menuBarIcons[0].name)));
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 48, 64}) {
        QPixmap pixmap = drawn(drawing, size);
        QPainter painter(&pixmap);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(pixmap.rect(), color);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

QColor anyPanelColor() {
    return {0xd0, 0x6c, 0x0c};
}

QIcon programIcon() {
    loadShellIcons();
    QSvgRenderer drawing(QStringLiteral(":/skipnest/icons/com.skipnest.Skipnest.svg"));
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128})
        icon.addPixmap(drawn(drawing, size));
    return icon;
}

} // namespace skipnest::linuxdesktop
