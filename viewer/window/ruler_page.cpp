#include "viewer/window/ruler_page.h"

#include <QPainter>
#include <QTextOption>

#include <cmath>

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

constexpr double kMm = kPointsPerMillimetre;
/// The crossing of the rulers, from the sheet's left and upper edge: far enough in for every printer.
constexpr int kCrossing = 30;
constexpr int kFirst = 5; ///< printers leave about this much of the edge white
constexpr double kThin = 0.35;

struct Tick {
    int every;     ///< millimetres
    double length; ///< millimetres
};
constexpr Tick kTicks[] = {{10, 4}, {5, 2.8}, {1, 1.6}};

double tickLength(int millimetre)
{
    for (const Tick &tick : kTicks)
        if (millimetre % tick.every == 0) return tick.length;
    return 0;
}

QFont pageFont(QFont font, double points)
{
    // In the painter's own unit, whatever resolution lies below.
    font.setPixelSize(static_cast<int>(std::lround(points)));
    return font;
}

void paintRuler(QPainter &painter, double length, Qt::Orientation orientation)
{
    const bool across = orientation == Qt::Horizontal;
    const auto at = [&](double along, double aside) {
        return across ? QPointF(along * kMm, (kCrossing + aside) * kMm)
                      : QPointF((kCrossing + aside) * kMm, along * kMm);
    };
    const int last = static_cast<int>(length / kMm) - kFirst;
    painter.drawLine(at(kFirst, 0), at(last, 0));
    for (int millimetre = kFirst; millimetre <= last; ++millimetre) {
        painter.drawLine(at(millimetre, 0), at(millimetre, tickLength(millimetre)));
        if (millimetre % kTicks[0].every != 0 || millimetre == kCrossing) continue;
        constexpr double kTextAside = 4.5, kTextSize = 10;
        const QPointF place = at(millimetre, kTextAside);
        const QRectF box = across ? QRectF(place.x() - kTextSize, place.y(), 2 * kTextSize, kTextSize)
                                  : QRectF(place.x(), place.y() - kTextSize / 2, 2 * kTextSize, kTextSize);
        painter.drawText(box, QString::number(millimetre),
                         QTextOption((across ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter));
    }
}

} // namespace

QString offsetText(const PrinterOffset &offset)
{
    const auto text = [](std::int32_t tenths) { return QString::number(tenths / 10.0, 'f', 1); };
    return u"右へ %1 mm、下へ %2 mm"_s.arg(text(offset.right), text(offset.down));
}

void paintRulerPage(QPainter &painter, Point paper, const PrinterOffset &offset, const QString &printer)
{
    painter.setPen(QPen(Qt::black, kThin));
    constexpr double kSmall = 8, kText = 11, kHead = 16;
    painter.setFont(pageFont(painter.font(), kSmall));
    paintRuler(painter, paper.x, Qt::Horizontal);
    paintRuler(painter, paper.y, Qt::Vertical);
    const QRectF text(60 * kMm, 60 * kMm, paper.x - 75 * kMm, 120 * kMm);
    painter.setFont(pageFont(painter.font(), kHead));
    painter.drawText(text, Qt::AlignLeft, u"位置調整のテスト"_s);
    painter.setFont(pageFont(painter.font(), kText));
    const QString lines = u"プリンター：%1\n今の調整：%2\n\n"
                          "１　用紙の左端から縦の定規の線までを、別の定規で測ります。\n"
                          "　　%3 mm より短いときは、その差だけ「右へ」を増やします。\n"
                          "　　長いときは、その差だけ「右へ」を減らします。\n\n"
                          "２　用紙の上端から横の定規の線までを、同じように測ります。\n"
                          "　　%3 mm より短いときは、その差だけ「下へ」を増やします。\n"
                          "　　長いときは、その差だけ「下へ」を減らします。\n\n"
                          "３　もう一度このページを印刷し、どちらも %3 mm になれば終わりです。"_s;
    painter.drawText(text.adjusted(0, 10 * kMm, 0, 0), Qt::AlignLeft | Qt::TextWordWrap,
                     lines.arg(printer, offsetText(offset)).arg(kCrossing));
}

} // namespace inin::viewer
