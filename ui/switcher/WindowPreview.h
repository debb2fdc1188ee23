// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QImage>
#include <QQuickItem>
#include <qqmlintegration.h>

namespace skipnest::ui {

// A picture in the middle of the item, pixel by pixel as it is.
class WindowPreview : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QImage picture READ picture WRITE setPicture NOTIFY pictureChanged)
    Q_PROPERTY(bool empty READ isEmpty NOTIFY pictureChanged)
public:
    explicit WindowPreview(QQuickItem* parent = nullptr);

    [[nodiscard]] const QImage& picture() const { return picture_; }
    void setPicture(const QImage& picture);
    [[nodiscard]] bool isEmpty() const { return picture_.isNull(); }

Q_SIGNALS:
    void pictureChanged();

protected:
    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

private:
    QImage picture_;
    bool isNew_ = false; // the texture is of the picture before
};

} // namespace skipnest::ui
