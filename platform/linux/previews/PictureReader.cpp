// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/previews/PictureReader.h"

#include <sys/ipc.h>
#include <sys/shm.h>
#include <xcb/shm.h>

#include <utility>

namespace skipnest::linuxdesktop {
namespace {

constexpr std::size_t largestPicture = std::size_t{256} << 20;
constexpr std::uint32_t allPlanes = ~0U;

} // namespace

std::unique_ptr<PictureReader> PictureReader::open() {
    Connection connection(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(connection.get()) != 0)
        return nullptr;
    return std::unique_ptr<PictureReader>(new PictureReader(std::move(connection)));
}

PictureReader::PictureReader(Connection connection) : connection_(std::move(connection)) {
    const xcb_query_extension_reply_t* extension =
        xcb_get_extension_data(connection_.get(), &xcb_shm_id);
    canShare_ = extension != nullptr && extension->present != 0;
}

PictureReader::~PictureReader() {
    unshare();
}

QImage::Format PictureReader::format(std::uint8_t depth, Alpha alpha) const {
    for (auto formats = xcb_setup_pixmap_formats_iterator(xcb_get_setup(connection_.get()));
         formats.rem > 0; xcb_format_next(&formats)) {
        if (formats.data->depth != depth)
            continue;
        if (formats.data->bits_per_pixel == 32 && (depth == 24 || depth == 32))
            return depth == 32 && alpha == Alpha::respected ? QImage::Format_ARGB32_Premultiplied
                                                            : QImage::Format_RGB32;
        if (formats.data->bits_per_pixel == 16 && depth == 16)
            return QImage::Format_RGB16;
    }
    return QImage::Format_Invalid;
}

QImage PictureReader::read(xcb_pixmap_t pixmap, const QSize& size, Shape shape, Alpha alpha) {
    xcb_connection_t* connection = connection_.get();
    const XcbPtr<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(connection, xcb_get_geometry(connection, pixmap), nullptr));
    if (!geometry)
        return {};
    const QImage::Format pixels = format(geometry->depth, alpha);
    if (pixels == QImage::Format_Invalid)
        return {};
    const int width = geometry->width;
    const int height = geometry->height;
    constexpr std::size_t scanlinePad = 4;
    const std::size_t stride =
        (std::size_t{geometry->width} * (pixels == QImage::Format_RGB16 ? 2 : 4) + scanlinePad -
         1) /
        scanlinePad * scanlinePad;
    const std::size_t bytes = stride * geometry->height;
    if (bytes == 0 || bytes > largestPicture)
        return {};
    if (share(bytes)) {
        const XcbPtr<xcb_shm_get_image_reply_t> shared(xcb_shm_get_image_reply(
            connection,
            xcb_shm_get_image(connection, pixmap, 0, 0, geometry->width, geometry->height,
                              allPlanes, XCB_IMAGE_FORMAT_Z_PIXMAP, segment_, 0),
            nullptr));
        if (!shared)
            return {};
        return scaled(QImage(static_cast<const uchar*>(memory_), width, height,
                             static_cast<qsizetype>(stride), pixels),
                      size, shape);
    }
    const XcbPtr<xcb_get_image_reply_t> sent(
        xcb_get_image_reply(connection,
                            xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, 0, 0,
                                          geometry->width, geometry->height, allPlanes),
                            nullptr));
    if (!sent || static_cast<std::size_t>(xcb_get_image_data_length(sent.get())) < bytes)
        return {};
    return scaled(QImage(xcb_get_image_data(sent.get()), width, height,
                         static_cast<qsizetype>(stride), pixels),
                  size, shape);
}

QImage PictureReader::scaled(const QImage& picture, const QSize& size, Shape shape) {
    QSize wanted = size;
    if (shape == Shape::fitting)
        wanted = picture.size().scaled(size, Qt::KeepAspectRatio).boundedTo(picture.size());
    if (wanted.isEmpty())
        return {};
    // A copy in any case: the pixels are not ours to keep.
    return (picture.size() == wanted
                ? picture.copy()
                : picture.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation))
        .convertToFormat(picture.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                   : QImage::Format_RGB32);
}

bool PictureReader::share(std::size_t bytes) {
    if (!canShare_ || bytes <= size_)
        return canShare_;
    unshare();
    constexpr int ownerOnly = 0600;
    const int id = shmget(IPC_PRIVATE, bytes, IPC_CREAT | ownerOnly);
    void* const mapped = id < 0 ? nullptr : shmat(id, nullptr, 0);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): how shmat() says no
    if (mapped != nullptr && mapped != reinterpret_cast<void*>(-1)) {
        memory_ = mapped;
        segment_ = xcb_generate_id(connection_.get());
        const XcbPtr<xcb_generic_error_t> error(xcb_request_check(
            connection_.get(), xcb_shm_attach_checked(connection_.get(), segment_,
                                                      static_cast<std::uint32_t>(id), 0)));
        size_ = error ? 0 : bytes;
    }
    // Both have it mapped by now, or nobody wants it: it goes with the last of them.
    if (id >= 0)
        shmctl(id, IPC_RMID, nullptr);
    canShare_ = size_ != 0;
    if (!canShare_)
        unshare();
    return canShare_;
}

void PictureReader::unshare() {
    if (std::exchange(size_, 0) != 0)
        xcb_shm_detach(connection_.get(), segment_);
    if (void* const mapped = std::exchange(memory_, nullptr))
        shmdt(mapped);
}

} // namespace skipnest::linuxdesktop
