#pragma once

#include <QPixmap>
#include <QWidget>

namespace inin {

/// A picture stretched over its whole widget; its proportions are not kept.
class PictureBox : public QWidget {
public:
    using QWidget::QWidget;
    void setPicture(const QPixmap &picture)
    {
        m_picture = picture;
        update();
    }
    [[nodiscard]] bool hasPicture() const { return !m_picture.isNull(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QPixmap m_picture;
};

} // namespace inin
