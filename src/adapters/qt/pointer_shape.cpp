#include "adapters/qt/pointer_shape.h"

#include "screen/form.h"

#include <QCursor>
#include <QGuiApplication>

namespace inin::qt {

void setPointerShape(std::int16_t kind)
{
    // The toolkit stacks the pointer shapes; the program has only one at a time.
    while (QGuiApplication::overrideCursor() != nullptr) QGuiApplication::restoreOverrideCursor();
    if (kind == kPointerHourglass) QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

UsualPointer::UsualPointer() : m_wasBusy(QGuiApplication::overrideCursor() != nullptr)
{
    setPointerShape(kPointerDefault);
}

UsualPointer::~UsualPointer()
{
    if (m_wasBusy) setPointerShape(kPointerHourglass);
}

} // namespace inin::qt
