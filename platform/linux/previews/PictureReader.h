// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/linux/X11Display.h"

#include <QImage>

#include <memory>

namespace skipnest::linuxdesktop {

// Reads pixmaps of the X server, on a connection and in a piece of shared memory of its own, so
// that it can work off the main thread. For one batch of pictures: what it holds is as large as the
// largest of them. Where the server shares no memory the pixels come through the socket.
class PictureReader {
public:
    enum class Shape {
        exact,   // of that very size
        fitting, // in the pixmap's proportions, no larger than the size and never enlarged
    };

    enum class Alpha {
        ignored,   // without a compositor nobody gives it a meaning
        respected, // of windows that have it
    };

    // Null where the server takes no further connection.
    [[nodiscard]] static std::unique_ptr<PictureReader> open();
    ~PictureReader();
    PictureReader(const PictureReader&) = delete;
    PictureReader& operator=(const PictureReader&) = delete;

    // Null where the pixmap is none, or of a kind that is not understood.
    [[nodiscard]] QImage read(xcb_pixmap_t pixmap, const QSize& size, Shape shape, Alpha alpha);
    [[nodiscard]] static QImage scaled(const QImage& picture, const QSize& size, Shape shape);

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    using Connection = std::unique_ptr<xcb_connection_t, Disconnect>;

    explicit PictureReader(Connection connection);
    [[nodiscard]] QImage::Format format(std::uint8_t depth, Alpha alpha) const;
    [[nodiscard]] bool share(std::size_t bytes);
    void unshare();

    Connection connection_;
    bool canShare_ = false;
    std::uint32_t segment_ = 0;
    void* memory_ = nullptr;
    std::size_t size_ = 0;
};

} // namespace skipnest::linuxdesktop
