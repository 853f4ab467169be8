#include "adapters/qt/form_window.h"
#include "adapters/qt/picture_box.h"
#include "adapters/qt/qt_text.h"
#include "adapters/qt/view_registry.h"

#include <QLabel>
#include <QLinearGradient>
#include <QListWidget>
#include <QPainter>
#include <QPixmap>
#include <QVBoxLayout>

namespace inin::qt {

namespace {

constexpr int kWidth = 420;
constexpr int kTitleHeight = 64;
constexpr int kNameHeight = 34;
constexpr int kListHeight = 150;
constexpr int kButtonWidth = 110;
constexpr int kButtonHeight = 34;
constexpr int kMargin = 12;
constexpr int kGap = 10;

/// The controls below the title picture, row by row.
constexpr const char *kRows[] = {"laVer", "lstVer", "shp01", "btnReturn"};

/// The suite's name on a green band, sharp at every scale.
QPixmap titlePicture(const QFont &font, qreal scale)
{
    constexpr int kIndent = 18;
    constexpr double kLetters = 1.6;
    QPixmap picture(QSize(kWidth, kTitleHeight) * scale);
    picture.setDevicePixelRatio(scale);
    const QRect band(0, 0, kWidth, kTitleHeight);
    QLinearGradient green(band.topLeft(), band.topRight());
    green.setColorAt(0, QColor(0x1F, 0x6B, 0x4A));
    green.setColorAt(1, QColor(0x4F, 0xA3, 0x78));
    QPainter painter(&picture);
    painter.fillRect(band, green);
    painter.setPen(Qt::white);
    QFont large = font;
    large.setPointSizeF(font.pointSizeF() * kLetters);
    painter.setFont(large);
    painter.drawText(band.adjusted(kIndent, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, toQt("Sorvin総合システム"));
    return picture;
}

void dress(FormWindow &window)
{
    auto &title = dynamic_cast<PictureBox &>(window.widget("PicTitle"));
    title.setFixedHeight(kTitleHeight);
    title.setPicture(titlePicture(window.font(), window.devicePixelRatioF()));
    auto &name = window.widgetAs<QLabel>("laVer");
    name.setAlignment(Qt::AlignCenter);
    name.setFrameStyle(QFrame::Box | QFrame::Plain);
    name.setMinimumHeight(kNameHeight);
    auto &lines = window.widgetAs<QListWidget>("lstVer");
    lines.setMinimumHeight(kListHeight);
    lines.setAccessibleName(toQt("バージョン"));
    window.widgetAs<QLabel>("shp01").setFrameStyle(QFrame::HLine | QFrame::Sunken);
    window.widget("btnReturn").setMinimumSize(kButtonWidth, kButtonHeight);
}

} // namespace

void layOutVer(FormWindow &window)
{
    window.setOpening(FormWindow::Opening::centred, FormWindow::Sizing::fixed);
    dress(window);
    auto *whole = new QVBoxLayout(&window.content());
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(&window.widget("PicTitle"));
    auto *rows = new QVBoxLayout;
    rows->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    rows->setSpacing(kGap);
    for (const char *control : kRows) rows->addWidget(&window.widget(control));
    rows->setAlignment(&window.widget("btnReturn"), Qt::AlignHCenter);
    whole->addLayout(rows);
    window.content().setMinimumWidth(kWidth);
}

} // namespace inin::qt
