#pragma once

#include "viewer/form/geometry.h"
#include "viewer/window/print_order.h"

#include <QPainter>

#include <memory>

namespace inin::viewer {

/// One job of a printer that takes no PDF: its pages are painted, in points.
class PaintedJob {
public:
    /// `order` must outlive this. A null printer refuses.
    PaintedJob(std::unique_ptr<QPrinter> printer, const PrintOrder &order, const QString &name, Point paper);
    PaintedJob(const PaintedJob &) = delete;
    PaintedJob &operator=(const PaintedJob &) = delete;
    ~PaintedJob();

    [[nodiscard]] bool isGood() const;
    /// How often the letters must be painted for the copies that are wanted.
    [[nodiscard]] int rounds() const { return m_rounds; }
    /// The painter of a new page.
    QPainter &page();
    bool finish();
    /// False when the system cannot take a job back: then the pages that it has go to the printer.
    bool takeBack();

private:
    std::unique_ptr<QPrinter> m_printer;
    const PrintOrder &m_order;
    QPainter m_painter;
    int m_rounds = 1;
    bool m_isGood = false, m_hasPage = false;
};

} // namespace inin::viewer
