#include "adapters/qt/picture_box.h"

#include <QPainter>

namespace inin {

void PictureBox::paintEvent(QPaintEvent *)
{
    if (m_picture.isNull()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(rect(), m_picture);
}

} // namespace inin
