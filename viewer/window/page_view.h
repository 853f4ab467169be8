#pragma once

#include "viewer/document/field_places.h"

#include <QAbstractScrollArea>
#include <QTimer>

#include <cstddef>
#include <functional>
#include <vector>

namespace inin::viewer {

struct OpenLetters;

/// One letter on its paper, its pages below one another: black on white under every theme, painted anew at each scale and therefore always sharp.
class PageView : public QAbstractScrollArea {
public:
    enum class Fit { none, page, width };
    /// Below this zoom the strokes of an ordinary form's characters merge.
    static constexpr double kReadableZoom = 0.55;

    explicit PageView(QWidget *parent = nullptr);

    /// `letters` must stay valid while it is shown.
    void showLetters(OpenLetters *letters);
    void showLetter(std::size_t letter);
    [[nodiscard]] std::size_t letter() const { return m_letter; }
    /// Paints the page again after its letters have changed.
    void repaintLetter();
    /// The same after the forms have changed, whose pages may have other sizes.
    void showForms();
    /// Marks places of the shown letter, in points on their pages, until another letter is shown, and brings the first one into
    /// view. Marks are not printed.
    void setMarks(std::vector<PlaceOnPage> places);
    [[nodiscard]] const std::vector<PlaceOnPage> &marks() const { return m_marks; }

    /// 1 is the paper's own size.
    [[nodiscard]] double zoom() const;
    void setZoom(double zoom);
    void zoomIn();
    void zoomOut();
    [[nodiscard]] Fit fit() const { return m_fit; }
    /// Where the whole page would be too small to read, Fit::page uses the width instead.
    void setFit(Fit fit);
    /// True if the whole page was requested but does not fit readably.
    [[nodiscard]] bool usesWidthForPage() const;
    /// The rectangle of a page's paper in the viewport.
    [[nodiscard]] QRect paperPlace(std::size_t page = 0) const;

    std::function<void()> onZoom;
    /// Called for a page key and for the wheel at the end or the beginning of the page.
    std::function<void(int step)> onTurn;
    /// Called once, when the first letter has been painted.
    std::function<void()> onFirstPaint;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    [[nodiscard]] std::size_t pageCount() const;
    [[nodiscard]] QSize paperPixels(std::size_t page) const;
    /// The size of all pages with the gaps between them.
    [[nodiscard]] QSize letterPixels() const;
    [[nodiscard]] double pixelsPerPoint() const;
    /// The zoom that fills the view's width or shows the whole page; without limits.
    [[nodiscard]] double zoomFor(Fit fit) const;
    void zoomChanged();
    void describeLetter();
    void paintPaper(QPainter &painter, std::size_t page, const QRect &visible);
    void makeAhead();
    [[nodiscard]] bool isAtEnd(int direction) const;
    void bringIntoView(const PlaceOnPage &place);
    void turn(int direction);
    void turnOrScroll(int direction);
    void turnByWheel(const QWheelEvent &event);

    OpenLetters *m_letters = nullptr;
    std::size_t m_letter = 0;
    std::vector<PlaceOnPage> m_marks;
    double m_zoom = 1;
    Fit m_fit = Fit::page;
    int m_wheel = 0;                ///< the wheel's angle at the end of the page that has not turned it yet
    std::ptrdiff_t m_direction = 1; ///< the direction of the last page turn
    QTimer m_ahead;                 ///< runs while neighbouring pages may be painted in advance
};

} // namespace inin::viewer
