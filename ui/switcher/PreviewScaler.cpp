// SPDX-License-Identifier: Apache-2.0
#include "ui/switcher/PreviewScaler.h"

#include "platform/Executor.h"

#include <QPainter>

#include <utility>

namespace skipnest::ui {
namespace {

constexpr double cornerRadius = 5;
constexpr int shadowStep = 40; // how dark it is next to the picture, of 255

QImage fitted(const QImage& image, const QSize& pixels, double devicePixelRatio) {
    // Never enlarged: a small window is a small picture.
    const QSize size = image.size().boundedTo(image.size().scaled(pixels, Qt::KeepAspectRatio));
    const QImage scaled =
        image.scaled(size.expandedTo({1, 1}), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const int margin = qRound(PreviewScaler::shadow * devicePixelRatio);
    const double radius = cornerRadius * devicePixelRatio;
    const QRectF window(QPointF(margin, margin), QSizeF(scaled.size()));
    QImage picture(scaled.size() + 2 * QSize(margin, margin), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, shadowStep / margin));
    for (int step = margin; step > 0; --step)
        painter.drawRoundedRect(window.adjusted(-step, 2 - step, step, step), radius + step,
                                radius + step);
    painter.setBrushOrigin(window.topLeft());
    painter.setBrush(QBrush(scaled));
    painter.drawRoundedRect(window, radius, radius);
    // A dark window on a dark card, or a white one on a white card, has an edge all the same.
    const double half = devicePixelRatio / 2;
    painter.setPen(QPen(QColor(128, 128, 128, 72), devicePixelRatio));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(window.adjusted(half, half, -half, -half), radius, radius);
    painter.end();
    picture.setDevicePixelRatio(devicePixelRatio);
    return picture;
}

} // namespace

PreviewScaler::PreviewScaler(platform::Executor& executor,
                             std::function<void(int, const QImage&)> scaled)
    : executor_(executor), state_(std::make_shared<State>()) {
    state_->scaled = std::move(scaled);
}

PreviewScaler::~PreviewScaler() = default;

void PreviewScaler::scale(int id, const QImage& image, const QSize& room, double devicePixelRatio) {
    const QSize pixels(qRound(room.width() * devicePixelRatio),
                       qRound(room.height() * devicePixelRatio));
    Wanted& wanted = state_->wanted[id];
    if (image.isNull() || pixels.isEmpty() ||
        (wanted.source == image.cacheKey() && wanted.pixels == pixels))
        return;
    wanted = {++lastRun_, image.cacheKey(), pixels};
    const auto result = std::make_shared<QImage>();
    executor_.background([result, image, pixels,
                          devicePixelRatio] { *result = fitted(image, pixels, devicePixelRatio); },
                         [alive = std::weak_ptr<State>(state_), result, id, run = lastRun_] {
                             const auto state = alive.lock();
                             if (state == nullptr || state->wanted.value(id).run != run)
                                 return;
                             state->scaled(id, *result);
                         });
}

void PreviewScaler::drop() {
    state_->wanted.clear();
}

} // namespace skipnest::ui
