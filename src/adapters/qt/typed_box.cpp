#include "adapters/qt/typed_box.h"

#include <QFocusEvent>

namespace inin::qt {

void TypedBox::focusOutEvent(QFocusEvent *event)
{
    // The box is not read when another program's window or a menu takes the focus. A menu's event reads the box first.
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason) commit();
    QLineEdit::focusOutEvent(event);
}

} // namespace inin::qt
