#pragma once

#include <cstdint>

namespace inin::qt {

/// Sets the mouse pointer over all windows of the program: kPointerHourglass, or any other value for the normal one.
void setPointerShape(std::int16_t kind);

/// Restores the normal pointer for its lifetime, for a box that waits for an answer in the middle of work.
class UsualPointer {
public:
    UsualPointer();
    UsualPointer(const UsualPointer &) = delete;
    UsualPointer &operator=(const UsualPointer &) = delete;
    ~UsualPointer();

private:
    bool m_wasBusy;
};

} // namespace inin::qt
