#include "adapters/qt/typed_box.h"

#include <QFocusEvent>

namespace inin::qt {

void TypedBox::focusInEvent(QFocusEvent *event)
{
    m_inputMethodBefore = switchInputMethod(*this, InputMethod::off);
    QLineEdit::focusInEvent(event);
}

void TypedBox::focusOutEvent(QFocusEvent *event)
{
    switchInputMethod(*this, m_inputMethodBefore);
    // The box is not read when another program's window or a menu takes the focus. A menu's event reads the box first.
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason) commit();
    QLineEdit::focusOutEvent(event);
}

} // namespace inin::qt
