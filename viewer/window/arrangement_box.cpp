#include "viewer/window/arrangement_box.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>

namespace inin::viewer {

using namespace Qt::StringLiterals;

ArrangementBox::ArrangementBox(const LetterArrangement &arrangement, QWidget *parent)
    : QGroupBox(u"並べ方"_s, parent), m_sort(new QComboBox(this)),
      m_covers(new QCheckBox(u"束の表紙を付ける(&K)"_s, this))
{
    m_sort->setObjectName(u"letterSort"_s);
    m_sort->setAccessibleName(u"委任状を並べる順"_s);
    for (const LetterSortText &each : kLetterSorts) m_sort->addItem(QString::fromUtf8(each.text));
    m_sort->setCurrentIndex(static_cast<int>(arrangement.sort));
    m_covers->setObjectName(u"bundleCovers"_s);
    m_covers->setToolTip(u"保険者や地区が変わるところに、氏名の一覧と署名、押印、提出の確認欄のある紙を入れます。"_s);
    m_covers->setChecked(arrangement.hasCovers);
    auto *const label = new QLabel(u"順(&L)"_s, this);
    label->setBuddy(m_sort);
    auto *const layout = new QHBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_sort);
    layout->addWidget(m_covers);
    layout->addStretch();
}

LetterArrangement ArrangementBox::arrangement() const
{
    return {kLetterSorts[m_sort->currentIndex()].sort, m_covers->isChecked()};
}

} // namespace inin::viewer
