// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QImage>
#include <QSize>

#include <cstdint>
#include <functional>
#include <memory>

namespace skipnest::platform {
class Executor;
}

namespace skipnest::ui {

// Brings pictures of windows down to the size of a card, off the main thread: scaled well, with
// rounded corners, a fine edge and a soft shadow, ready to be copied to the screen.
class PreviewScaler {
public:
    // What the shadow takes on each side, in device-independent pixels; it lies around `room`.
    static constexpr int shadow = 5;

    // `scaled` is told on the main thread, never from inside; of several pictures of one id only
    // the last. `executor` must outlive this object.
    PreviewScaler(platform::Executor& executor,
                  std::function<void(int id, const QImage& picture)> scaled);
    ~PreviewScaler();

    // `room` in device-independent pixels; the picture has its own shape and fits in there.
    void scale(int id, const QImage& image, const QSize& room, double devicePixelRatio);
    // Nothing that is under way is told any more.
    void drop();

private:
    struct Wanted {
        std::uint64_t run = 0;
        qint64 source = 0; // of which image
        QSize pixels;
    };
    struct State {
        std::function<void(int, const QImage&)> scaled;
        QHash<int, Wanted> wanted;
    };

    platform::Executor& executor_;
    std::uint64_t lastRun_ = 0;
    std::shared_ptr<State> state_;
};

} // namespace skipnest::ui
