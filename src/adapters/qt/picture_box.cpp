#include "adapters/qt/picture_box.h"

#include <QPainter>
#include <QTimer>

namespace inin::qt {

namespace {
/// Milliseconds. Smoothing a wallpaper is slow, and the next window at program start must not wait for it.
constexpr int kSettled = 150;
} // namespace

void PictureBox::setPicture(const QPixmap &picture)
{
    m_picture = picture;
    m_smooth = {};
    // Widgets under an opaque picture need not be painted first.
    setAttribute(Qt::WA_OpaquePaintEvent, !picture.isNull() && !picture.hasAlpha());
    update();
}

QSize PictureBox::devicePixels() const
{
    return size() * devicePixelRatio();
}

void PictureBox::paintEvent(QPaintEvent *)
{
    if (m_picture.isNull()) return;
    const bool isSmooth = m_smooth.size() == devicePixels();
    QPainter(this).drawPixmap(rect(), isSmooth ? m_smooth : m_picture);
    if (!isSmooth) smoothLater();
}

void PictureBox::smoothLater()
{
    if (m_isPlanned) return;
    m_isPlanned = true;
    QTimer::singleShot(kSettled, this, [this] {
        m_isPlanned = false;
        m_smooth = m_picture.scaled(devicePixels(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        update();
    });
}

} // namespace inin::qt
