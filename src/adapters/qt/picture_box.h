#pragma once

#include <QPixmap>
#include <QWidget>

namespace inin::qt {

/// A picture stretched over its whole widget, ignoring its proportions. The first paint at a size is quick and rough,
/// so that program start does not wait for a wallpaper; the smooth one follows when the program is idle.
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
    QPixmap m_smooth; ///< at the widget's size, null until it is created
    bool m_isPlanned = false;
};

} // namespace inin::qt
