#pragma once

#include <QString>

#include <cstdint>

class QKeyEvent;

namespace inin::qt {

/// The runtime's code of the return key, the escape key or a function key (see key_codes.h); 0 for any other key and
/// for a key with a modifier.
[[nodiscard]] std::int16_t keyCode(const QKeyEvent &event);
/// The text that a menu shows for a code, empty for 0.
[[nodiscard]] QString keyText(std::int16_t code);

} // namespace inin::qt
