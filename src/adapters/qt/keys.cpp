#include "adapters/qt/keys.h"

#include <QKeyEvent>

namespace inin {

namespace {
constexpr std::int16_t kReturnCode = 13;
constexpr std::int16_t kEscapeCode = 27;
constexpr std::int16_t kF1Code = 112;
constexpr std::int16_t kF12Code = 123;
} // namespace

std::int16_t keyCode(const QKeyEvent &event)
{
    if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return 0;
    const int key = event.key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) return kReturnCode;
    if (key == Qt::Key_Escape) return kEscapeCode;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return static_cast<std::int16_t>(kF1Code + key - Qt::Key_F1);
    return 0;
}

QString keyText(std::int16_t code)
{
    if (code < kF1Code || code > kF12Code) return {};
    return QStringLiteral("F%1").arg(code - kF1Code + 1);
}

} // namespace inin
