#pragma once

class QWidget;

namespace inin::qt {

enum class InputMethod { on, off };

/// Turns the input method of the box's window on or off and returns its previous state. The user can still turn it on by
/// key, for example to type an era. Windows only: there the toolkit does not pass on a box's hints for the input method.
/// Elsewhere it does; nothing happens, and the result is `off`.
InputMethod switchInputMethod(const QWidget &box, InputMethod state);

} // namespace inin::qt
