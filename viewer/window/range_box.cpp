#include "viewer/window/range_box.h"

#include "runtime/runtime_error.h"
#include "viewer/document/letter_ticks.h"
#include "viewer/window/qt_text.h"
#include "viewer/window/viewer_style.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

namespace inin::viewer {

using namespace Qt::StringLiterals;

RangeBox::RangeBox(QWidget *parent)
    : QWidget(parent), m_box(new QLineEdit(this)), m_count(new QLabel(this)), m_fault(new QLabel(this))
{
    m_box->setObjectName(u"rangeBox"_s);
    m_box->setAccessibleName(u"出力する番号"_s);
    m_box->setPlaceholderText(u"例：1-3,5"_s);
    m_box->setToolTip(u"出力する委任状の番号。例：1-3,5"_s);
    m_count->setObjectName(u"rangeCount"_s);
    m_fault->setObjectName(u"rangeFault"_s);
    m_fault->setWordWrap(true);
    m_fault->setPalette(warningPalette(palette()));
    m_fault->hide();
    auto *const label = new QLabel(u"出力する番号(&N)"_s, this);
    label->setBuddy(m_box);
    auto *const layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label, 0, 0);
    layout->addWidget(m_box, 0, 1);
    layout->addWidget(m_count, 0, 2);
    layout->addWidget(m_fault, 1, 0, 1, 3);
    layout->setColumnStretch(1, 1);
    setFocusProxy(m_box);
    QObject::connect(m_box, &QLineEdit::textEdited, this, [this] { read(); });
    // "1,2,3" stays as it is while the user types, and becomes "1-3" afterwards.
    QObject::connect(m_box, &QLineEdit::editingFinished, this, [this] {
        if (m_isReadable) ticksChanged();
    });
}

void RangeBox::showTicks(LetterTicks *ticks)
{
    m_ticks = ticks;
    ticksChanged();
}

void RangeBox::showCount()
{
    m_count->setText(u"%1通／%2通"_s.arg(m_ticks->count()).arg(m_ticks->size()));
}

void RangeBox::ticksChanged()
{
    if (m_ticks == nullptr) return;
    m_isReadable = true;
    m_fault->hide();
    // Setting the text again would clear the undo history.
    if (const QString text = qtText(m_ticks->text()); text != m_box->text()) {
        m_box->setText(text);
        m_box->setCursorPosition(0);
    }
    showCount();
}

void RangeBox::read()
{
    if (m_ticks == nullptr) return;
    try {
        m_ticks->setText(utf8Text(m_box->text()));
        m_isReadable = true;
        m_fault->hide();
    } catch (const RuntimeError &error) {
        m_isReadable = false;
        m_fault->setText(qtText(error.description()));
        m_fault->show();
        return;
    }
    showCount();
    if (onChanged) onChanged();
}

void RangeBox::focusBox()
{
    m_box->setFocus(Qt::OtherFocusReason);
    m_box->selectAll();
}

} // namespace inin::viewer
