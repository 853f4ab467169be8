#include "adapters/qt/drop_down_list.h"

#include "desktop_theme/clear_style.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QStyleOption>
#include <QToolTip>

namespace inin::qt {

bool DropDownList::isCut() const
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    return theme::shownComboText(option, *this) != currentText();
}

/// The toolkit would omit the middle of an item.
void DropDownList::showPopup()
{
    view()->setTextElideMode(Qt::ElideRight);
    QComboBox::showPopup();
}

bool DropDownList::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || !isCut()) return QComboBox::event(event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), currentText(), this);
    return true;
}

} // namespace inin::qt
