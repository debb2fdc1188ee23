// SPDX-License-Identifier: Apache-2.0
#include "ui/QuickAlerts.h"

#include <QCoreApplication>
#include <QEvent>
#include <QQuickItem>
#include <QQuickView>
#include <QScreen>
#include <QtMath>

#include <algorithm>
#include <utility>

// The linker leaves the type registration of a static library out unless something asks for it.
extern void qml_register_types_Skipnest(); // NOLINT(readability-identifier-naming): generated

namespace skipnest::ui {

using platform::Alert;

AlertContent::AlertContent(Alert alert, const Palette& palette)
    : alert_(std::move(alert)), palette_(palette) {}

// The content outlives the view, whose bindings read it until the last.
struct QuickAlerts::Window {
    std::unique_ptr<AlertContent> content;
    std::unique_ptr<QQuickView> view;
    std::vector<std::function<void(int)>> answered;
};

QuickAlerts::QuickAlerts(std::function<const Palette&()> palette) : palette_(std::move(palette)) {
    qml_register_types_Skipnest();
}

QuickAlerts::~QuickAlerts() = default;

void QuickAlerts::show(const Alert& alert, std::function<void(int)> answered) {
    const auto same = std::ranges::find_if(
        windows_, [&alert](const auto& window) { return window->content->alert() == alert; });
    if (same != windows_.end()) {
        (*same)->answered.push_back(std::move(answered));
        (*same)->view->raise();
        (*same)->view->requestActivate();
        return;
    }
    auto window = std::make_unique<Window>();
    Window* raw = window.get();
    window->answered.push_back(std::move(answered));
    window->content = std::make_unique<AlertContent>(alert, palette_());
    window->view = std::make_unique<QQuickView>();
    QQuickView& view = *window->view;
    view.setTitle(QCoreApplication::applicationName());
    view.setFlags(Qt::Dialog | Qt::WindowStaysOnTopHint);
    view.setResizeMode(QQuickView::SizeViewToRootObject);
    view.setColor(window->content->windowColor());
    view.setInitialProperties(
        {{QStringLiteral("alert"), QVariant::fromValue(window->content.get())}});
    view.setSource(QUrl(QStringLiteral("qrc:/Skipnest/Alert.qml")));
    connect(
        window->content.get(), &AlertContent::chosen, this,
        [this, raw](int index) { closed(raw, index); }, Qt::QueuedConnection);
    view.installEventFilter(this);
    windows_.push_back(std::move(window));

    // As large as its text: there is nothing to gain from another size. How many lines the text
    // takes is known only once it has been laid out.
    const auto fit = [&view] {
        const QSize size(qCeil(view.rootObject()->implicitWidth()),
                         qCeil(view.rootObject()->implicitHeight()));
        view.setMinimumSize(size);
        view.setMaximumSize(size);
        view.resize(size);
    };
    fit();
    connect(view.rootObject(), &QQuickItem::implicitHeightChanged, &view, fit);
    if (const QScreen* screen = view.screen()) {
        const QRect available = screen->availableGeometry();
        // A little above the middle, where the eye looks first.
        view.setPosition(available.x() + (available.width() - view.width()) / 2,
                         available.y() + (available.height() - view.height()) / 3);
    }
    view.show();
    view.raise();
    view.requestActivate();
}

void QuickAlerts::closed(Window* window, int answer) {
    const auto found = std::ranges::find_if(
        windows_, [window](const auto& owned) { return owned.get() == window; });
    if (found == windows_.end())
        return;
    const std::unique_ptr<Window> owned = std::move(*found);
    windows_.erase(found);
    owned->view->close();
    for (const auto& answered : owned->answered)
        answered(answer);
}

bool QuickAlerts::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Close)
        return false;
    const auto found = std::ranges::find_if(
        windows_, [watched](const auto& window) { return window->view.get() == watched; });
    if (found != windows_.end()) {
        AlertContent& content = *(*found)->content;
        Q_EMIT content.chosen(static_cast<int>(content.buttons().size()) - 1);
    }
    return false;
}

} // namespace skipnest::ui
