// SPDX-License-Identifier: Apache-2.0
#include "ui/switcher/PreviewScaler.h"

#include "platform/Executor.h"

#include <QPainter>
#include <QPainterPath>

#include <utility>

namespace skipnest::ui {
namespace {

constexpr double cornerRadius = 5;

QImage fitted(const QImage& image, const QSize& pixels, double devicePixelRatio) {
    // Never enlarged: a small window is a small picture.
    const QSize size = image.size().boundedTo(image.size().scaled(pixels, Qt::KeepAspectRatio));
    const QImage scaled =
        image.scaled(size.expandedTo({1, 1}), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QImage rounded(scaled.size(), QImage::Format_ARGB32_Premultiplied);
    rounded.fill(Qt::transparent);
    QPainter painter(&rounded);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QBrush(scaled));
    const double radius = cornerRadius * devicePixelRatio;
    painter.drawRoundedRect(rounded.rect(), radius, radius);
    painter.end();
    rounded.setDevicePixelRatio(devicePixelRatio);
    return rounded;
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
