#pragma once

#include <QAbstractScrollArea>
#include <QTimer>

#include <cstddef>
#include <functional>

namespace inin::viewer {

struct OpenLetters;

/// One letter on its paper: black on white under every theme, painted anew at each scale and so sharp at all of them.
class PageView : public QAbstractScrollArea {
public:
    enum class Fit { none, page, width };

    explicit PageView(QWidget *parent = nullptr);

    /// Must outlive its showing.
    void showLetters(OpenLetters *letters);
    void showLetter(std::size_t letter);
    [[nodiscard]] std::size_t letter() const { return m_letter; }

    /// 1 is the paper's own size.
    [[nodiscard]] double zoom() const;
    void setZoom(double zoom);
    void zoomIn();
    void zoomOut();
    [[nodiscard]] Fit fit() const { return m_fit; }
    void setFit(Fit fit);
    /// Where the paper lies on the viewport.
    [[nodiscard]] QRect paperPlace() const;

    std::function<void()> onZoom;
    /// Asked for by the page keys at the page's end and beginning.
    std::function<void(int step)> onTurn;
    /// Called once, when the first letter has been painted.
    std::function<void()> onFirstPaint;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    [[nodiscard]] QSize paperPixels() const;
    [[nodiscard]] double pixelsPerPoint() const;
    void zoomChanged();
    void describeLetter();
    void paintPaper(QPainter &painter, const QRect &place);
    void makeAhead();
    void turnOrScroll(int direction);

    OpenLetters *m_letters = nullptr;
    std::size_t m_letter = 0;
    double m_zoom = 1;
    Fit m_fit = Fit::page;
    std::ptrdiff_t m_direction = 1; ///< in which the pages were turned last
    QTimer m_ahead;                 ///< runs while neighbours may be made ahead
};

} // namespace inin::viewer
