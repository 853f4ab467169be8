#include "adapters/qt/option_radio_button.h"

#include <QKeyEvent>

namespace inin::qt {

OptionRadioButton::OptionRadioButton(QWidget *parent) : QRadioButton(parent)
{
    setAutoExclusive(false);
}

void OptionRadioButton::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Left:
        return walk(-1);
    case Qt::Key_Down:
    case Qt::Key_Right:
        return walk(1);
    default:
        return QRadioButton::keyPressEvent(event);
    }
}

void OptionRadioButton::walk(int step)
{
    QList<OptionRadioButton *> usable;
    for (QObject *sibling : parentWidget()->children())
        if (auto *option = dynamic_cast<OptionRadioButton *>(sibling);
            option != nullptr && option->isVisible() && option->isEnabled())
            usable.append(option);
    const auto own = usable.indexOf(this);
    if (own < 0 || usable.size() < 2) return;
    OptionRadioButton *next = usable.at((own + step + usable.size()) % usable.size());
    next->setFocus(Qt::TabFocusReason);
    next->click();
}

} // namespace inin::qt
