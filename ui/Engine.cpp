// SPDX-License-Identifier: Apache-2.0
#include "ui/Engine.h"

#include "platform/IconSource.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QQmlEngine>
#include <QQuickImageProvider>
#include <QSvgRenderer>
#include <QUrl>
#include <QVariant>

// The linker leaves the type registration of a static library out unless something asks for it.
extern void qml_register_types_Skipnest(); // NOLINT(readability-identifier-naming): generated

namespace skipnest::ui {
namespace {

constexpr int defaultPixels = 32;

// Symbols are drawn in one colour, which the view chooses: the files say "currentColor".
class SymbolProvider final : public QQuickImageProvider {
public:
    SymbolProvider() : QQuickImageProvider(QQuickImageProvider::Image) {}

    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override {
        const QString name = id.section(u'/', 0, 0);
        const QString color = u'#' + id.section(u'/', 1, 1);
        const QSize wanted =
            requestedSize.isValid() ? requestedSize : QSize(defaultPixels, defaultPixels);
        QImage image(wanted, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QFile file(QStringLiteral(":/Skipnest/symbols/") + name + QStringLiteral(".svg"));
        if (file.open(QFile::ReadOnly)) {
            QSvgRenderer renderer(file.readAll().replace("currentColor", color.toLatin1()));
            QPainter painter(&image);
            renderer.render(&painter);
        }
        *size = image.size();
        return image;
    }
};

// Not in Qt Quick's loading thread: icon themes are read on the main thread only.
class TargetIconProvider final : public QQuickImageProvider {
public:
    explicit TargetIconProvider(platform::IconSource& icons)
        : QQuickImageProvider(QQuickImageProvider::Image), icons_(icons) {}

    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override {
        const int pixels = requestedSize.width() > 0 ? requestedSize.width() : defaultPixels;
        QImage image;
        if (!icons_.icon(QUrl::fromPercentEncoding(id.toUtf8()), pixels, image)) {
            // One transparent pixel: a null image would be an error for the view.
            image = QImage(1, 1, QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::transparent);
        }
        *size = image.size();
        return image;
    }

private:
    platform::IconSource& icons_;
};

} // namespace

std::unique_ptr<QQmlEngine> makeEngine(platform::IconSource& icons, model::Theme theme) {
    qml_register_types_Skipnest();
    auto engine = std::make_unique<QQmlEngine>();
    // Where the module's views are: those in subfolders import it like everybody else.
    engine->addImportPath(QStringLiteral("qrc:/"));
    engine->setProperty("skipnestTheme", QVariant::fromValue(new ThemeColors(theme, engine.get())));
    engine->addImageProvider(QStringLiteral("symbols"), new SymbolProvider);
    engine->addImageProvider(QStringLiteral("icons"), new TargetIconProvider(icons));
    return engine;
}

ThemeColors& themeOf(QQmlEngine& engine) {
    return *engine.property("skipnestTheme").value<ThemeColors*>();
}

} // namespace skipnest::ui
