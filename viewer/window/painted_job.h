#pragma once

#include "viewer/form/geometry.h"
#include "viewer/window/print_order.h"

#include <QPainter>

#include <memory>

namespace inin::viewer {

/// One job for a printer that does not accept PDF: its pages are painted, in points.
class PaintedJob {
public:
    /// `order` must outlive this. A null printer counts as one that refuses.
    PaintedJob(std::unique_ptr<QPrinter> printer, const PrintOrder &order, const QString &name, Point paper);
    PaintedJob(const PaintedJob &) = delete;
    PaintedJob &operator=(const PaintedJob &) = delete;
    ~PaintedJob();

    [[nodiscard]] bool isGood() const;
    /// How often the letters must be painted for the requested copies.
    [[nodiscard]] int rounds() const { return m_rounds; }
    /// Starts a new page on paper of this size and returns its painter.
    QPainter &page(Point paper);
    bool finish();
    /// Withdraws the job. Returns false when the system cannot; the pages painted so far are then printed.
    bool takeBack();

private:
    void setPaper(Point paper);

    std::unique_ptr<QPrinter> m_printer;
    const PrintOrder &m_order;
    QPainter m_painter;
    Point m_paper; ///< of the present page
    int m_rounds = 1;
    bool m_isGood = false, m_hasPage = false;
};

} // namespace inin::viewer
