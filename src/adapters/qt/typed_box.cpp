#include "adapters/qt/typed_box.h"

#include <QFocusEvent>

namespace inin::qt {

void TypedBox::focusOutEvent(QFocusEvent *event)
{
    // Another program's window in front, or a menu, does not end the typing. What a menu starts reads the box first.
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason) commit();
    QLineEdit::focusOutEvent(event);
}

} // namespace inin::qt
