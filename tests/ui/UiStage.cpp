// SPDX-License-Identifier: Apache-2.0
#include "tests/ui/UiStage.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QQuickItem>
#include <QQuickView>
#include <QQuickWindow>

namespace skipnest::test {
namespace {

QQuickItem* find(QQuickItem* root, const QString& objectName) {
    if (root == nullptr || !root->isVisible())
        return nullptr;
    if (root->objectName() == objectName)
        return root;
    for (QQuickItem* child : root->childItems())
        if (QQuickItem* found = find(child, objectName))
            return found;
    return nullptr;
}

} // namespace

UiStage::UiStage() {
    desk_.panels().drawOn(&panels_);
}

UiStage::~UiStage() {
    desk_.panels().drawOn(nullptr);
    panels_.detach();
}

void UiStage::launch(Setup setup) {
    agent_ = std::make_unique<app::AppDelegate>(
        desk_.ports(), app::AppDelegate::Options{.setup = setup, .quit = {}});
    panels_.attach(*agent_);
    agent_->launch();
    settle();
}

void UiStage::show(const platform::PopoverRoute& route) {
    agent_->shell().showPopover(route);
    settle();
}

QQuickView& UiStage::popover() {
    return *panels_.popoverView();
}

QQuickView& UiStage::onboarding() {
    if (panels_.onboardingView() == nullptr)
        qFatal("the onboarding window is not shown");
    return *panels_.onboardingView();
}

QImage UiStage::picture(QQuickView& view) {
    settle();
    return view.grabWindow();
}

QQuickItem& UiStage::item(const QString& objectName) {
    return item(popover(), objectName);
}

QQuickItem& UiStage::item(QQuickView& view, const QString& objectName) {
    QQuickItem* found = find(view.rootObject(), objectName);
    if (found == nullptr)
        qFatal("no visible item is called \"%s\"", qUtf8Printable(objectName));
    return *found;
}

bool UiStage::hasItem(const QString& objectName) {
    return hasItem(popover(), objectName);
}

bool UiStage::hasItem(QQuickView& view, const QString& objectName) {
    return find(view.rootObject(), objectName) != nullptr;
}

void UiStage::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    press(popover(), key, modifiers);
}

void UiStage::press(QQuickView& view, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    // A press may close the window.
    const QPointer<QQuickView> target = &view;
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers);
        if (target)
            QCoreApplication::sendEvent(target, &event);
    }
    settle();
}

void UiStage::type(const QString& text) {
    type(popover(), text);
}

void UiStage::type(QQuickView& view, const QString& text) {
    for (const QChar c : text) {
        QKeyEvent down(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
        QCoreApplication::sendEvent(&view, &down);
        QKeyEvent up(QEvent::KeyRelease, 0, Qt::NoModifier, QString(c));
        QCoreApplication::sendEvent(&view, &up);
    }
    settle();
}

void UiStage::click(QQuickItem& item) {
    // A click may take away what was clicked.
    const QPointer<QQuickWindow> window = item.window();
    const QPointF at = item.mapToScene(QPointF(item.width() / 2, item.height() / 2));
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const auto held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        if (!window)
            break;
        QMouseEvent event(type, at, window->mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier);
        QCoreApplication::sendEvent(window, &event);
    }
    settle();
}

void UiStage::settle() {
    for (int round = 0; round < 3; ++round) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        desk_.runPosted();
    }
}

} // namespace skipnest::test
