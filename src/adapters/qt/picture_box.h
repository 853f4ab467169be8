#pragma once

#include <QPixmap>
#include <QWidget>

namespace inin::qt {

/// A picture stretched over its whole widget; its proportions are not kept. The first paint at a size is quick and rough,
/// so that a start does not wait for a wallpaper; the smooth one follows when nothing else is to be done.
class PictureBox : public QWidget {
public:
    using QWidget::QWidget;
    void setPicture(const QPixmap &picture);
    [[nodiscard]] bool hasPicture() const { return !m_picture.isNull(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] QSize devicePixels() const;
    void smoothLater();

    QPixmap m_picture;
    QPixmap m_smooth; ///< at the widget's size, null until it is made
    bool m_isPlanned = false;
};

} // namespace inin::qt
