// SPDX-License-Identifier: Apache-2.0
#include "tests/ui/UiStage.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QQuickItem>
#include <QQuickView>

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

void UiStage::launch() {
    agent_ = std::make_unique<app::AppDelegate>(desk_.ports());
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

QImage UiStage::picture(QQuickView& view) {
    settle();
    return view.grabWindow();
}

QQuickItem& UiStage::item(const QString& objectName) {
    QQuickItem* found = find(popover().rootObject(), objectName);
    if (found == nullptr)
        qFatal("no visible item is called \"%s\"", qUtf8Printable(objectName));
    return *found;
}

bool UiStage::hasItem(const QString& objectName) {
    return find(popover().rootObject(), objectName) != nullptr;
}

void UiStage::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers);
        QCoreApplication::sendEvent(&popover(), &event);
    }
    settle();
}

void UiStage::type(const QString& text) {
    for (const QChar c : text) {
        QKeyEvent down(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
        QCoreApplication::sendEvent(&popover(), &down);
        QKeyEvent up(QEvent::KeyRelease, 0, Qt::NoModifier, QString(c));
        QCoreApplication::sendEvent(&popover(), &up);
    }
    settle();
}

void UiStage::click(QQuickItem& item) {
    const QPointF at = item.mapToScene(QPointF(item.width() / 2, item.height() / 2));
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const auto held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QMouseEvent event(type, at, popover().mapToGlobal(at), Qt::LeftButton, held,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&popover(), &event);
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
