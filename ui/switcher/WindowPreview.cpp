// SPDX-License-Identifier: Apache-2.0
#include "ui/switcher/WindowPreview.h"

#include <QQuickWindow>
#include <QSGImageNode>

#include <memory>
#include <utility>

namespace skipnest::ui {

WindowPreview::WindowPreview(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
}

void WindowPreview::setPicture(const QImage& picture) {
    if (picture.cacheKey() == picture_.cacheKey())
        return;
    picture_ = picture;
    isNew_ = true;
    Q_EMIT pictureChanged();
    update();
}

QSGNode* WindowPreview::updatePaintNode(QSGNode* node, UpdatePaintNodeData*) {
    if (picture_.isNull()) {
        delete node;
        return nullptr;
    }
    auto* image = static_cast<QSGImageNode*>(node);
    const bool isFirst = image == nullptr;
    if (isFirst) {
        image = window()->createImageNode();
        image->setOwnsTexture(true);
        image->setFiltering(QSGTexture::Linear);
    }
    if (std::exchange(isNew_, false) || isFirst)
        image->setTexture(window()->createTextureFromImage(picture_));
    const double ratio = window()->effectiveDevicePixelRatio();
    const QSizeF size = QSizeF(picture_.size()) / picture_.devicePixelRatio();
    // On whole pixels of the screen, or the picture would be smeared over two.
    const auto middle = [ratio](double room, double length) {
        return qRound((room - length) / 2 * ratio) / ratio;
    };
    image->setRect(
        QRectF(QPointF(middle(width(), size.width()), middle(height(), size.height())), size));
    return image;
}

} // namespace skipnest::ui
