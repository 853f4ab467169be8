#include "adapters/qt/input_method.h"

#include <QWidget>

#include <windows.h>

#include <imm.h>

namespace inin::qt {

InputMethod switchInputMethod(const QWidget &box, InputMethod state)
{
    const auto window = reinterpret_cast<HWND>(box.window()->internalWinId());
    const HIMC context = ImmGetContext(window);
    if (context == nullptr) return InputMethod::off; // no input method is installed
    const InputMethod before = ImmGetOpenStatus(context) != 0 ? InputMethod::on : InputMethod::off;
    if (state != before) ImmSetOpenStatus(context, state == InputMethod::on ? TRUE : FALSE);
    ImmReleaseContext(window, context);
    return before;
}

} // namespace inin::qt
