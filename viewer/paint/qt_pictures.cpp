#include "viewer/form/picture.h"
#include "viewer/paint/qt_page_painter.h"

#include <QPainter>

#include <cstring>

namespace inin::viewer {

namespace {

QImage qtImage(const Picture &picture)
{
    const int width = static_cast<int>(picture.width), height = static_cast<int>(picture.height);
    QImage image(width, height, picture.channels == 1 ? QImage::Format_Grayscale8 : QImage::Format_RGB888);
    const std::size_t stride = picture.width * picture.channels;
    for (int y = 0; y < height; ++y)
        std::memcpy(image.scanLine(y), picture.pixels.data() + static_cast<std::size_t>(y) * stride, stride);
    if (picture.alpha.empty()) return image;
    QImage alpha(width, height, QImage::Format_Alpha8);
    for (int y = 0; y < height; ++y)
        std::memcpy(alpha.scanLine(y), picture.alpha.data() + static_cast<std::size_t>(y) * picture.width,
                    picture.width);
    image.convertTo(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.drawImage(0, 0, alpha);
    return image;
}

} // namespace

const QImage &QtGlyphs::image(const Picture &picture)
{
    const auto [place, isNew] = m_images.try_emplace(&picture);
    if (isNew) place->second = qtImage(picture);
    return place->second;
}

const QImage &QtGlyphs::reducedImage(const Picture &picture, QSize size)
{
    QImage &reduced = m_reducedImages[&picture];
    if (reduced.size() != size) reduced = image(picture).scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return reduced;
}

} // namespace inin::viewer
