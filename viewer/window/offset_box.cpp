#include "viewer/window/offset_box.h"

#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <cmath>

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

constexpr double kTenths = 10; ///< in a millimetre

QDoubleSpinBox *millimetreBox(const char *name, const QString &direction, QWidget *parent)
{
    constexpr double kMost = 50, kStep = 0.1;
    auto *const box = new QDoubleSpinBox(parent);
    box->setObjectName(QLatin1String(name));
    box->setAccessibleName(u"位置の調整、%1、ミリメートル"_s.arg(direction));
    box->setRange(-kMost, kMost);
    box->setDecimals(1);
    box->setSingleStep(kStep);
    box->setSuffix(u" mm"_s);
    return box;
}

std::int32_t tenthsOf(const QDoubleSpinBox &box)
{
    return static_cast<std::int32_t>(std::lround(box.value() * kTenths));
}

} // namespace

OffsetBox::OffsetBox(QWidget *parent)
    : QGroupBox(u"位置の調整（プリンターごとに覚えます）"_s, parent),
      m_right(millimetreBox("offsetRight", u"右へ"_s, this)), m_down(millimetreBox("offsetDown", u"下へ"_s, this)),
      m_rulers(new QPushButton(u"テストページを印刷(&T)"_s, this))
{
    m_rulers->setObjectName(u"rulerPage"_s);
    m_rulers->setAccessibleName(u"位置調整のテストページを印刷"_s);
    m_rulers->setAutoDefault(false);
    QObject::connect(m_rulers, &QPushButton::clicked, this, [this] {
        if (onRulerPage) onRulerPage();
    });
    auto *const layout = new QHBoxLayout(this);
    const auto add = [&](const QString &text, QWidget *box) {
        auto *const label = new QLabel(text, this);
        label->setBuddy(box);
        layout->addWidget(label);
        layout->addWidget(box);
    };
    add(u"右へ(&X)"_s, m_right);
    add(u"下へ(&Y)"_s, m_down);
    layout->addStretch();
    layout->addWidget(m_rulers);
}

PrinterOffset OffsetBox::offset() const
{
    return {tenthsOf(*m_right), tenthsOf(*m_down)};
}

void OffsetBox::setOffset(const PrinterOffset &offset)
{
    m_right->setValue(offset.right / kTenths);
    m_down->setValue(offset.down / kTenths);
}

void OffsetBox::enableRulerPage(bool isEnabled)
{
    m_rulers->setEnabled(isEnabled);
}

} // namespace inin::viewer
