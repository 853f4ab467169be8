#include "adapters/qt/keys.h"

#include "platform/key_codes.h"

#include <QKeyEvent>

namespace inin::qt {

std::int16_t keyCode(const QKeyEvent &event)
{
    if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return 0;
    const int key = event.key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) return kReturnKey;
    if (key == Qt::Key_Escape) return kEscapeKey;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return static_cast<std::int16_t>(kF1Key + key - Qt::Key_F1);
    return 0;
}

QString keyText(std::int16_t code)
{
    if (code < kF1Key || code > kF12Key) return {};
    return QStringLiteral("F%1").arg(code - kF1Key + 1);
}

} // namespace inin::qt
